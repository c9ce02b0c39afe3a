#include "dde_server.h"

#include "explain.h"
#include "MorvApi.h"
#include "names.h"
#include "session.h"

#include <cstring>
#include <map>
#include <string>
#include <windows.h>

#include <ddeml.h>

namespace {

constexpr DWORD kLongestText = 4096;

DWORD g_instance = 0;
HSZ g_service = nullptr;
HSZ g_topic = nullptr;

// What is linked, by the name that the client uses: one that ends its link stays, for the names of
// a program are few.
struct Link {
    std::string name; // of the fact or result
    std::string sent; // its state, as it was last
};
std::map<std::string, Link> g_links;

std::string TextOf(HSZ name) {
    char text[256] = {};
    DdeQueryStringA(g_instance, name, text, sizeof text, CP_WINANSI);
    return text;
}

HDDEDATA Told(bool yes) {
    return reinterpret_cast<HDDEDATA>(static_cast<ULONG_PTR>(yes));
}

HDDEDATA Poke(HSZ item, HDDEDATA data) {
    // The text need not have its NUL.
    std::string text(kLongestText, '\0');
    text.resize(DdeGetData(data, reinterpret_cast<BYTE*>(text.data()), kLongestText, 0));
    // Clients that send cells of a table end them like lines.
    text.resize(std::strcspn(text.c_str(), "\r\n"));
    return morv::PokeItem(TextOf(item), text) ? reinterpret_cast<HDDEDATA>(DDE_FACK)
                                              : DDE_FNOTPROCESSED;
}

// The state of the fact or result that a client calls `name`; empty where there is none.
std::string State(const std::string& name) {
    const std::string state = morv::StateText(name);
    return !state.empty() ? state : morv::StateText(morv::MeantName(name));
}

HDDEDATA Request(HSZ item) {
    std::string state = State(TextOf(item));
    if (state.empty())
        return nullptr;
    return DdeCreateDataHandle(g_instance, reinterpret_cast<BYTE*>(state.data()),
                               static_cast<DWORD>(state.size() + 1), 0, item, CF_TEXT, 0);
}

bool Begin(HSZ item) {
    const std::string name = TextOf(item);
    // Looking for a name in another case goes through all of them.
    const std::string meant = morv::StateText(name).empty() ? morv::MeantName(name) : name;
    const std::string state = morv::StateText(meant);
    if (state.empty())
        return false;
    g_links.try_emplace(name, Link{meant, state});
    return true;
}

HDDEDATA CALLBACK AnswerDde(UINT type, UINT format, HCONV, HSZ topic, HSZ name, HDDEDATA data,
                            ULONG_PTR, ULONG_PTR) {
    if (type == XTYP_CONNECT)
        return Told(DdeCmpStringHandles(topic, g_topic) == 0 &&
                    DdeCmpStringHandles(name, g_service) == 0);
    if (format != CF_TEXT)
        return nullptr; // also what a poke that was not processed returns
    switch (type) {
    case XTYP_POKE:
        return Poke(name, data);
    case XTYP_REQUEST:
    case XTYP_ADVREQ:
        return Request(name);
    case XTYP_ADVSTART:
        return Told(Begin(name));
    default:
        return nullptr;
    }
}

} // namespace

bool StartDdeServer() {
    if (DdeInitializeA(&g_instance, AnswerDde, APPCLASS_STANDARD, 0) != DMLERR_NO_ERROR)
        return false;
    g_service = DdeCreateStringHandleA(g_instance, ApZk, CP_WINANSI);
    g_topic = DdeCreateStringHandleA(g_instance, ItemZk, CP_WINANSI);
    return g_service != nullptr && g_topic != nullptr &&
           DdeNameService(g_instance, g_service, nullptr, DNS_REGISTER) != nullptr;
}

void StopDdeServer() {
    if (g_instance != 0)
        DdeUninitialize(g_instance);
    g_instance = 0;
}

void AdviseOfChanges() {
    for (auto& [name, link] : g_links) {
        const std::string state = morv::StateText(link.name);
        if (state == link.sent)
            continue;
        link.sent = state;
        const HSZ item = DdeCreateStringHandleA(g_instance, name.c_str(), CP_WINANSI);
        DdePostAdvise(g_instance, g_topic, item);
        DdeFreeStringHandle(g_instance, item);
    }
}
