// A DDE client, as another program that feeds a built one.
#pragma once

#include <string>
#include <windows.h>

#include <ddeml.h>

namespace zentrik_test {

class DdeClient {
public:
    DdeClient() { DdeInitializeA(&instance_, Answer, APPCMD_CLIENTONLY, 0); }
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

private:
    static HDDEDATA CALLBACK Answer(UINT, UINT, HCONV, HSZ, HSZ, HDDEDATA, ULONG_PTR, ULONG_PTR) {
        return nullptr;
    }

    DWORD instance_ = 0;
    HCONV conversation_ = nullptr;
};

} // namespace zentrik_test
