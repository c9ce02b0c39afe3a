// A DDE client, as another program that feeds a built one.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

#include <ddeml.h>

namespace zentrik_test {

class DdeClient {
public:
    DdeClient() {
        instance_ = 0;
        advised_.clear();
        DdeInitializeA(&instance_, Answer, APPCMD_CLIENTONLY, 0);
    }
    DdeClient(const DdeClient&) = delete;
    DdeClient& operator=(const DdeClient&) = delete;
    ~DdeClient() { DdeUninitialize(instance_); }

    bool Connect(const char* service, const char* topic) {
        const HSZ names[] = {DdeCreateStringHandleA(instance_, service, CP_WINANSI),
                             DdeCreateStringHandleA(instance_, topic, CP_WINANSI)};
        conversation_ = DdeConnect(instance_, names[0], names[1], nullptr);
        return conversation_ != nullptr;
    }

    bool Poke(const char* item, std::string text, UINT format = CF_TEXT) {
        const HSZ name = DdeCreateStringHandleA(instance_, item, CP_WINANSI);
        return DdeClientTransaction(reinterpret_cast<BYTE*>(text.data()),
                                    static_cast<DWORD>(text.size() + 1), conversation_, name,
                                    format, XTYP_POKE, 10000, nullptr) != nullptr;
    }

    // What the server says about an item; empty when nothing. One request for each client: of a
    // second one in a conversation the library of some systems takes the rest of the first answer.
    std::string Request(const char* item, UINT format = CF_TEXT) {
        const HDDEDATA data = Ask(item, format, XTYP_REQUEST);
        if (data == nullptr)
            return {};
        const std::string text = TextOf(data);
        DdeFreeDataHandle(data);
        return text;
    }

    // Asks to be told of changes; Advised has them as "ITEM = text".
    bool Advise(const char* item) { return Ask(item, CF_TEXT, XTYP_ADVSTART) != nullptr; }
    const std::vector<std::string>& Advised() const { return advised_; }

private:
    HDDEDATA Ask(const char* item, UINT format, UINT what) {
        const HSZ name = DdeCreateStringHandleA(instance_, item, CP_WINANSI);
        return DdeClientTransaction(nullptr, 0, conversation_, name, format, what, 10000, nullptr);
    }

    static std::string TextOf(HDDEDATA data) {
        char text[256] = {};
        DdeGetData(data, reinterpret_cast<BYTE*>(text), sizeof text - 1, 0);
        return text;
    }

    static HDDEDATA CALLBACK Answer(UINT type, UINT, HCONV, HSZ, HSZ item, HDDEDATA data, ULONG_PTR,
                                    ULONG_PTR) {
        if (type != XTYP_ADVDATA)
            return nullptr;
        char name[256] = {};
        DdeQueryStringA(instance_, item, name, sizeof name, CP_WINANSI);
        advised_.push_back(std::string(name) + " = " + TextOf(data));
        return reinterpret_cast<HDDEDATA>(DDE_FACK);
    }

    // A test has one client at a time.
    static inline DWORD instance_ = 0;
    static inline std::vector<std::string> advised_;
    HCONV conversation_ = nullptr;
};

} // namespace zentrik_test
