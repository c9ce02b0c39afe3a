#include "dde_server.h"

#include "ddecom.h"
#include "MorvApi.h"
#include "shell.h"

#include <cstdio>
#include <cstring>
#include <ctime>
#include <windows.h>

#include <ddeml.h>

namespace {

constexpr DWORD kLongestText = 255;

DWORD g_instance = 0;
HSZ g_service = nullptr;
HSZ g_topic = nullptr;

// The number of an item; -1 when the name is none's.
int ItemNumber(HSZ name) {
    for (int i = 0; i < numItems; ++i) {
        const HSZ item = DdeCreateStringHandleA(g_instance, Items[i], CP_WINANSI);
        const bool same = DdeCmpStringHandles(item, name) == 0;
        DdeFreeStringHandle(g_instance, item);
        if (same)
            return i;
    }
    return -1;
}

void StampTime() {
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    if (local == nullptr || std::strftime(hora, sizeof hora, "%H:%M:%S", local) == 0)
        std::snprintf(hora, sizeof hora, "now");
}

HDDEDATA Poke(HSZ item, HDDEDATA data) {
    const int number = ItemNumber(item);
    if (number < 0)
        return DDE_FNOTPROCESSED;
    // The text need not have its NUL.
    char text[kLongestText + 1] = {};
    DdeGetData(data, reinterpret_cast<BYTE*>(text), kLongestText, 0);
    // Clients that send cells of a table end them like lines.
    text[std::strcspn(text, "\r\n")] = '\0';
    NewData(number, text);
    StampTime();
    morv::Output(std::string("Poke: ") + Items[number] + " = " + text);
    return reinterpret_cast<HDDEDATA>(DDE_FACK);
}

HDDEDATA CALLBACK Answer(UINT type, UINT format, HCONV, HSZ topic, HSZ name, HDDEDATA data,
                         ULONG_PTR, ULONG_PTR) {
    switch (type) {
    case XTYP_CONNECT:
        return reinterpret_cast<HDDEDATA>(static_cast<ULONG_PTR>(
            DdeCmpStringHandles(topic, g_topic) == 0 && DdeCmpStringHandles(name, g_service) == 0));
    case XTYP_POKE:
        return format == CF_TEXT ? Poke(name, data) : DDE_FNOTPROCESSED;
    default:
        return nullptr;
    }
}

} // namespace

bool StartDdeServer() {
    if (DdeInitializeA(&g_instance, Answer, APPCLASS_STANDARD, 0) != DMLERR_NO_ERROR)
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
