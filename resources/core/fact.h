// The fact record: one item of a facts base (.fac), copied whole into each system that uses it.
#pragma once

#include <cstddef>
#include <cstdint>

#pragma pack(push, 1)
struct Dat {
    char Name[70];
    char Description[70];
    char KnowType[50];
    char Units[25];
    double inf_limit;
    double sup_limit;
    double Step;
    double lowest;
    double low;
    double normal;
    double high;
    double highest;
    std::int32_t Interval;
    std::int32_t Ident;
};
#pragma pack(pop)

static_assert(sizeof(Dat) == 287);
static_assert(offsetof(Dat, Units) == 190 && offsetof(Dat, inf_limit) == 215);
static_assert(offsetof(Dat, Interval) == 279 && offsetof(Dat, Ident) == 283);
