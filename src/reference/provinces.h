// ENUMTYPE_PROVINCE: the jurisdiction of a return.
#pragma once

// 0 is no choice; 1 to 13 the provinces and territories; 14 to 17 the
// non-resident and deemed-resident kinds.
enum ENUMTYPE_PROVINCE : int {
    ENUM_PROV_NONE = 0,
    ENUM_PROV_AB = 1,
    ENUM_PROV_BC = 2,
    ENUM_PROV_MB = 3,
    ENUM_PROV_NB = 4,
    ENUM_PROV_NL = 5,
    ENUM_PROV_NS = 6,
    ENUM_PROV_NT = 7,
    ENUM_PROV_NU = 8,
    ENUM_PROV_ON = 9,
    ENUM_PROV_PE = 10,
    ENUM_PROV_QC = 11,
    ENUM_PROV_SK = 12,
    ENUM_PROV_YT = 13,
    ENUM_PROV_NONRESIDENT = 14,
    ENUM_PROV_NONRESIDENT_216 = 15,
    ENUM_PROV_NONRESIDENT_217 = 16,
    ENUM_PROV_DEEMED_RESIDENT = 17
};
