#include "cpostcodeinfo.h"

#include "jurisdictiontables.h"

#include <QString>

#include <cstring>
#include <mutex>

namespace {
std::mutex s_initMutex;
}

CPostCodeInfo* CPostCodeInfo::GetInstance()
{
    // Never destroyed: lookups may still come from static destructors.
    static CPostCodeInfo* const instance = new CPostCodeInfo;
    return instance;
}

CPostCodeInfo::CPostCodeInfo()
    : m_loaded(false)
{
    for (char*& start : m_sectionStarts)
        start = nullptr;
}

CPostCodeInfo::~CPostCodeInfo() = default;

void CPostCodeInfo::init()
{
    if (m_loaded.load(std::memory_order_acquire))
        return;
    std::lock_guard<std::mutex> lock(s_initMutex);
    if (m_loaded.load(std::memory_order_relaxed))
        return;
    m_text.Init();
    if (m_text.LoadFile(":/misc/res/postcode.txt") != 0)
        return;
    for (int row = 1; row <= ProvinceCount; ++row) {
        const QByteArray marker = QStringLiteral("[%1]")
                                      .arg(QLatin1String(Global_Provs_Info[row].shortName))
                                      .toLatin1();
        int pos = 0;
        m_sectionStarts[row - 1] = m_text.SearchString(marker.constData(), pos);
    }
    m_loaded.store(true, std::memory_order_release);
}

ENUMTYPE_PROVINCE CPostCodeInfo::ProvFromPostCode(char const* code)
{
    if (!code || ::strnlen(code, 3) < 3)
        return ENUM_PROV_NONE;
    init();
    if (!m_loaded.load(std::memory_order_acquire))
        return ENUM_PROV_NONE;

    const char area[4] = { code[0], code[1], code[2], '\0' };
    int result = ENUM_PROV_NONE;
    int pos = 0;
    // A plain substring search over the whole text, marker lines included; the
    // province is that of the nearest section start before the match, so the
    // sections may stand in any order. The last match wins.
    for (char* hit = m_text.SearchString(area, pos); hit; hit = m_text.SearchString(area, pos)) {
        const char* nearest = nullptr;
        int province = ENUM_PROV_NONE;
        for (int i = 0; i < ProvinceCount; ++i) {
            const char* start = m_sectionStarts[i];
            if (start && start < hit && (!nearest || start > nearest)) {
                nearest = start;
                province = i + 1;
            }
        }
        result = province;
    }
    return ENUMTYPE_PROVINCE(result);
}

bool CPostCodeInfo::IsPostCodeFromProv(char const* code, ENUMTYPE_PROVINCE prov)
{
    init();
    return ProvFromPostCode(code) == prov;
}
