// CPostCodeInfo: the province of a Canadian postal code.
#pragma once

#include "cmemoryblock.h"
#include "provinces.h"

#include <atomic>

/*
 * The province of a postal code, judged by its forward sortation area (its
 * first three characters) against the compiled-in list ":/misc/res/postcode.txt".
 * One instance lives for the whole process; the list is read at the first
 * lookup, under a lock so that the first lookups may come from any thread.
 * Codes are `const char*` bytes compared as they stand: no case folding, so
 * "k1a" is not found.
 */
class LIBBEDROCK_EXPORT CPostCodeInfo
{
public:
    static constexpr int ProvinceCount = 13;

    static CPostCodeInfo* GetInstance();

    virtual ~CPostCodeInfo();
    CPostCodeInfo(const CPostCodeInfo&) = delete;
    CPostCodeInfo& operator=(const CPostCodeInfo&) = delete;

    // Loads the list once; a failed load is tried again at the next call.
    void init();
    // 0 for a null code, one shorter than three bytes, or an area not listed.
    ENUMTYPE_PROVINCE ProvFromPostCode(char const* code);
    bool IsPostCodeFromProv(char const* code, ENUMTYPE_PROVINCE prov);

private:
    CPostCodeInfo();

    std::atomic<bool> m_loaded;
    CMemoryBlock m_text;
    // Where each province's section begins, in the row order of Global_Provs_Info.
    char* m_sectionStarts[ProvinceCount];
};
