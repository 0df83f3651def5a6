#include "dependantinfo.h"
#include "translation_p.h"

#include "calendar.h"
#include "household_p.h"
#include "libbedrock_config.h"
#include "logging_p.h"
#include "mydatastream_p.h"

#include <QBuffer>
#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <new>

// The names of both tables are marked for the translation of the combo boxes
// that list them; the records and their display text use them as they stand.
const _RelationshipStru globalRelationships[16] = {
    /*  0 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "Son") },
    /*  1 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "Daughter") },
    /*  2 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "Father") },
    /*  3 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "Mother") },
    /*  4 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "Grandfather") },
    /*  5 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "GrandMother") },
    /*  6 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "GrandSon") },
    /*  7 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "GrandDaughter") },
    /*  8 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "Brother") },
    /*  9 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "Sister") },
    /* 10 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "Nephew") },
    /* 11 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "Niece") },
    /* 12 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "Uncle") },
    /* 13 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "Aunt") },
    /* 14 */ { 0, QT_TRANSLATE_NOOP("CT1ComboBox", "Other") },
    /* 15 */ { 0, "" },
};

const _InfirmStru globalInfirms[3] = {
    /* 0 */ { 0, QT_TRANSLATE_NOOP("CT1ComboBox", "Normal") },
    /* 1 */ { 1, QT_TRANSLATE_NOOP("CT1ComboBox", "Infirm") },
    /* 2 */ { 2, QT_TRANSLATE_NOOP("CT1ComboBox", "Disabled") },
};

namespace {

constexpr int NameSize = 80;
constexpr int DateTextSize = 8;
// Archives up to this version hold the birth date as a day number.
constexpr unsigned int LastDoubleDateVersion = 0x10210;
// Archives up to this version hold the net income in single precision.
constexpr unsigned int LastSingleIncomeVersion = 0x100b1;

constexpr int RelationDaughter = 1;
constexpr int RelationFather = 2;
constexpr int RelationGrandMother = 5;
constexpr int RelationBrother = 8;
constexpr int RelationSister = 9;

constexpr int InfirmInfirm = 1;
constexpr int InfirmDisabled = 2;

// Relation and infirmity codes come from archives and applications unchecked:
// the tables are indexed only inside their bounds, and anything else has no name.
const char* relationName(qint32 relation)
{
    constexpr qint32 rows = qint32(sizeof globalRelationships / sizeof globalRelationships[0]);
    return relation >= 0 && relation < rows ? globalRelationships[relation].m_name : "";
}

const char* infirmName(int code)
{
    constexpr int rows = int(sizeof globalInfirms / sizeof globalInfirms[0]);
    return code >= 0 && code < rows ? globalInfirms[code].m_name : "";
}

CString trimmedName(const char* name)
{
    return CString(CString(name).trimmed());
}

// The smallest number of bytes one row takes in `version`: what an empty row
// writes, since every field of the row has a fixed or length-prefixed form.
qint64 minimumRowBytes(int version)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    MyDataStream out(&buffer);
    _OneDependantInfoStru row;
    row.serilize(version, out);
    return std::max<qint64>(1, bytes.size());
}

int birthYear(const _OneDependantInfoStru& row)
{
    return row.m_BirthDate.isValid() ? row.m_BirthDate.year() : 0;
}

int ageOf(const _OneDependantInfoStru& row)
{
    return LIBBEDROCK_TAX_YEAR - birthYear(row);
}

bool bornInTime(const _OneDependantInfoStru& row)
{
    return birthYear(row) < LIBBEDROCK_NEXT_TAX_YEAR;
}

bool inRange(int age, int minAge, int maxAge)
{
    return (minAge < 1 || age >= minAge) && (maxAge < 1 || age <= maxAge);
}

bool isInfirm(const _OneDependantInfoStru& row)
{
    return row.fld_Infirm.m_value == InfirmInfirm || row.fld_Infirm.m_value == InfirmDisabled;
}

} // namespace

_OneDependantInfoStru::_OneDependantInfoStru()
    : m_BirthDate()
    , m_Relation(0)
    , m_NetIncome(0.0)
    , fld_Infirm(0, 0, FIELD_ATTR_NONE, 0, 0x100a1)
    , fld_InfirmNature(0, "", 80, 0x100db)
    , fld_Addr(0, "", 160, 0x100db)
    , fld_iProv(0.0, 0, false, 0x100c0)
    , fld_medexp_other_notused(0.0, 0, false, 0x100c0)
    , fld_medexp_attcare_notused(0.0, 0, false, 0x100c0)
    , fld_medexp_van_notused(0.0, 0, false, 0x100c0)
    , fld_medexp_move_notused(0.0, 0, false, 0x100c0)
{
    std::memset(m_FirstName, 0, sizeof m_FirstName);
    std::memset(m_LastName, 0, sizeof m_LastName);
    fld_Infirm.m_name = "fld_Infirm";
    fld_InfirmNature.m_name = "fld_InfirmNature";
    fld_Addr.m_name = "fld_Addr";
    fld_iProv.m_name = "fld_iProv";
    fld_medexp_other_notused.m_name = "fld_medexp_other_notused";
    fld_medexp_attcare_notused.m_name = "fld_medexp_attcare_notused";
    fld_medexp_van_notused.m_name = "fld_medexp_van_notused";
    fld_medexp_move_notused.m_name = "fld_medexp_move_notused";
    m_fields = { &fld_Infirm,
                 &fld_InfirmNature,
                 &fld_Addr,
                 &fld_iProv,
                 &fld_medexp_other_notused,
                 &fld_medexp_attcare_notused,
                 &fld_medexp_van_notused,
                 &fld_medexp_move_notused };
}

_OneDependantInfoStru::_OneDependantInfoStru(const _OneDependantInfoStru& other)
    : _OneDependantInfoStru()
{
    // operator= only reads its argument.
    *this = const_cast<_OneDependantInfoStru&>(other);
}

_OneDependantInfoStru::~_OneDependantInfoStru() = default;

bool _OneDependantInfoStru::operator==(_OneDependantInfoStru& other)
{
    if (std::strncmp(m_FirstName, other.m_FirstName, NameSize) != 0
        || std::strncmp(m_LastName, other.m_LastName, NameSize) != 0)
        return false;
    if (m_BirthDate != other.m_BirthDate)
        return false;
    if (m_Relation != other.m_Relation)
        return false;
    if (!(std::fabs(m_NetIncome - other.m_NetIncome) < 0.009))
        return false;
    return !Common_Func_OperatorNotEqual(m_fields, other.m_fields);
}

_OneDependantInfoStru& _OneDependantInfoStru::operator=(_OneDependantInfoStru& other)
{
    if (this == &other)
        return *this;
    std::memcpy(m_FirstName, other.m_FirstName, sizeof m_FirstName);
    std::memcpy(m_LastName, other.m_LastName, sizeof m_LastName);
    m_FirstName[NameSize - 1] = '\0';
    m_LastName[NameSize - 1] = '\0';
    m_BirthDate = other.m_BirthDate;
    m_Relation = other.m_Relation;
    m_NetIncome = other.m_NetIncome;
    Common_Func_OperatorAssign(other.m_fields, m_fields);
    return *this;
}

void _OneDependantInfoStru::serilize(int version, MyDataStream& stream)
{
    // Archive versions are unsigned; the int of the signature carries the bits.
    const unsigned int v = unsigned(version);
    if (stream.IsStoring()) {
        char name[NameSize];
        std::memcpy(name, m_FirstName, NameSize);
        name[NameSize - 1] = '\0';
        stream.Write(name, NameSize);
        std::memcpy(name, m_LastName, NameSize);
        name[NameSize - 1] = '\0';
        stream.Write(name, NameSize);
        stream << qint32(0);
        char date[DateTextSize] = {};
        if (m_BirthDate.isValid()) {
            // Years outside 0..9999 do not fit the block and are cut to it.
            const QByteArray text = m_BirthDate.toString(QStringLiteral("yyyyMMdd")).toLatin1();
            std::memcpy(date, text.constData(),
                        size_t(std::min<qsizetype>(DateTextSize, text.size())));
        }
        stream.Write(date, DateTextSize);
        stream << m_Relation << m_NetIncome;
        Common_Serialize_Func(version, stream, m_fields);
        return;
    }

    // The head is read aside and taken only when all of it arrived, so a cut
    // archive leaves the row's head as it was.
    char first[NameSize];
    char last[NameSize];
    if (stream.Read(first, NameSize) != NameSize || stream.Read(last, NameSize) != NameSize)
        return;
    // A hostile archive may fill all 80 bytes: the last one stays the terminator.
    first[NameSize - 1] = '\0';
    last[NameSize - 1] = '\0';
    qint32 ignored = 0;
    stream >> ignored;

    QDate birth;
    if (v <= LastDoubleDateVersion) {
        double days = 0.0;
        stream >> days;
        birth = DateAsDouble::convertDoubleToDate(days);
    } else {
        char text[DateTextSize + 1] = {};
        stream.Read(text, DateTextSize);
        // Eight zero bytes, or text that is no date, give the null date.
        birth = QDate::fromString(QLatin1String(text), QStringLiteral("yyyyMMdd"));
    }

    qint32 relation = 0;
    stream >> relation;
    double income = 0.0;
    if (v <= LastSingleIncomeVersion) {
        // The stream keeps double precision: this takes 8 bytes and narrows
        // them to single precision, as these archives were read.
        float narrow = 0.0f;
        stream >> narrow;
        income = narrow;
    } else {
        stream >> income;
    }
    if (stream.status() != QDataStream::Ok)
        return;

    std::memcpy(m_FirstName, first, NameSize);
    std::memcpy(m_LastName, last, NameSize);
    m_BirthDate = birth;
    m_Relation = relation;
    m_NetIncome = income;
    Common_Serialize_Func(version, stream, m_fields);
}

bool _OneDependantInfoStru::MakeComboBoxString(CString& out)
{
    out.Empty();
    const CString first = trimmedName(m_FirstName);
    const CString last = trimmedName(m_LastName);
    if (first.isEmpty() && last.isEmpty())
        return false;

    QString text = first.isEmpty() ? tr("<FirstName>") : QString(first);
    text += QLatin1Char(' ');
    text += last.isEmpty() ? tr("<LastName>") : QString(last);
    text += QLatin1String(" - ");
    // Display text: the names read in the language of the lists that show them.
    text += Bedrock::translatedTableText(relationName(m_Relation));
    text += tr(" - net inc.");
    text += QStringLiteral("($%1) - ").arg(m_NetIncome, 0, 'f', 2);
    // With the separator that closes the amount this doubles: ") -  - Infirm".
    text += QLatin1String(" - ");
    text += Bedrock::translatedTableText(infirmName(fld_Infirm.m_value));
    if (m_BirthDate.isValid()) {
        text += QLatin1String(" - ");
        text += m_BirthDate.toString(QStringLiteral("yyyy-MM-dd"));
    }
    out = text;
    return true;
}

void _OneDependantInfoStru::getName(CString& out)
{
    const QString joined = CString(m_FirstName) + QLatin1Char(' ') + CString(m_LastName);
    const QString name = joined.trimmed();
    out = name.isEmpty() ? tr("<unknown name>") : name;
}

const char* _OneDependantInfoStru::getInfirmStatusStr()
{
    return infirmName(fld_Infirm.m_value);
}

int _OneDependantInfoStru::getAge()
{
    return ageOf(*this);
}

bool _OneDependantInfoStru::IsDisabled()
{
    return fld_Infirm.m_value == InfirmDisabled;
}

bool _OneDependantInfoStru::IsInfirmOrDisabled()
{
    return isInfirm(*this);
}

bool _OneDependantInfoStru::IsMedExpForLine330()
{
    return birthYear(*this) >= LIBBEDROCK_MINOR_BIRTH_YEAR
        && unsigned(m_Relation) <= unsigned(RelationDaughter);
}

DependantInfoStruct::DependantInfoStruct()
    : m_nCount(0)
    , F185Adjustment(0.0, 0)
    , fld_medexp_notused(0.0, 0, false, 0x100c0)
    , fld_medexp_other_notused(0.0, 0, false, 0x100c0)
    , fld_medexp_attcare_notused(0.0, 0, false, 0x100c0)
    , fld_medexp_van_notused(0.0, 0, false, 0x100c0)
    , fld_medexp_move_notused(0.0, 0, false, 0x100c0)
    , fld_medexp_spouse_notused(0.0, 0, false, 0x100c0)
    , fld_medexp_other_spouse_notused(0.0, 0, false, 0x100c0)
    , fld_medexp_attcare_spouse_notused(0.0, 0, false, 0x100c0)
    , fld_medexp_van_spouse_notused(0.0, 0, false, 0x100c0)
    , fld_medexp_move_spouse_notused(0.0, 0, false, 0x100c0)
    , m_pData(nullptr)
    , m_nAllocated(0)
{
    fld_medexp_notused.m_name = "fld_medexp_notused";
    fld_medexp_other_notused.m_name = "fld_medexp_other_notused";
    fld_medexp_attcare_notused.m_name = "fld_medexp_attcare_notused";
    fld_medexp_van_notused.m_name = "fld_medexp_van_notused";
    fld_medexp_move_notused.m_name = "fld_medexp_move_notused";
    fld_medexp_spouse_notused.m_name = "fld_medexp_spouse_notused";
    fld_medexp_other_spouse_notused.m_name = "fld_medexp_other_spouse_notused";
    fld_medexp_attcare_spouse_notused.m_name = "fld_medexp_attcare_spouse_notused";
    fld_medexp_van_spouse_notused.m_name = "fld_medexp_van_spouse_notused";
    fld_medexp_move_spouse_notused.m_name = "fld_medexp_move_spouse_notused";
    m_fields = { &fld_medexp_notused,
                 &fld_medexp_other_notused,
                 &fld_medexp_attcare_notused,
                 &fld_medexp_van_notused,
                 &fld_medexp_move_notused,
                 &fld_medexp_spouse_notused,
                 &fld_medexp_other_spouse_notused,
                 &fld_medexp_attcare_spouse_notused,
                 &fld_medexp_van_spouse_notused,
                 &fld_medexp_move_spouse_notused };
}

DependantInfoStruct::DependantInfoStruct(const DependantInfoStruct& other)
    : DependantInfoStruct()
{
    // operator= only reads its argument.
    *this = const_cast<DependantInfoStruct&>(other);
}

DependantInfoStruct::~DependantInfoStruct()
{
    FreeData();
}

int DependantInfoStruct::rowCount() const
{
    return m_pData ? std::clamp(m_nCount, 0, m_nAllocated) : 0;
}

bool DependantInfoStruct::rowExists(int i)
{
    CString ignored;
    return m_pData[i].MakeComboBoxString(ignored);
}

void DependantInfoStruct::AllocData(int count)
{
    FreeData();
    count = std::max(0, count);
    // An allocation that cannot be had leaves the list empty instead of throwing.
    m_pData = new (std::nothrow) _OneDependantInfoStru[size_t(count)];
    if (!m_pData)
        return;
    m_nCount = count;
    m_nAllocated = count;
}

void DependantInfoStruct::FreeData()
{
    // Also frees the empty array that AllocData(0) leaves, which would
    // otherwise be lost when both are cleared.
    delete[] m_pData;
    m_pData = nullptr;
    m_nCount = 0;
    m_nAllocated = 0;
}

void DependantInfoStruct::serilize(int version, MyDataStream& stream)
{
    if (stream.IsStoring()) {
        const int rows = rowCount();
        stream << qint32(rows);
        for (int i = 0; i < rows; ++i)
            m_pData[i].serilize(version, stream);
        Common_Serialize_Func(version, stream, m_fields);
        return;
    }

    QIODevice* device = stream.device();
    qint32 count = 0;
    if (!device || !Bedrock::readKeeping(stream, count))
        return;
    if (count < 1) {
        FreeData();
    } else {
        const auto rows = Bedrock::readAnnouncedRows<_OneDependantInfoStru>(
            stream, version, count, minimumRowBytes(version), "dependant list");
        // Unlike the old loader, the previous rows are freed before the new
        // array replaces them.
        AllocData(int(rows.size()));
        for (int i = 0; i < rowCount(); ++i)
            m_pData[i] = *rows[size_t(i)];
    }
    Common_Serialize_Func(version, stream, m_fields);
}

bool DependantInfoStruct::operator==(DependantInfoStruct& other)
{
    const int rows = rowCount();
    // The other side is not asked for its count, but a side with fewer rows
    // than this one differs rather than being read past its end.
    if (rows > other.rowCount())
        return false;
    for (int i = 0; i < rows; ++i) {
        if (!(m_pData[i] == other.m_pData[i]))
            return false;
    }
    return !Common_Func_OperatorNotEqual(m_fields, other.m_fields);
}

DependantInfoStruct& DependantInfoStruct::operator=(DependantInfoStruct& other)
{
    if (this == &other)
        return *this;
    AllocData(other.rowCount());
    for (int i = 0; i < rowCount(); ++i)
        m_pData[i] = other.m_pData[i];
    Common_Func_OperatorAssign(other.m_fields, m_fields);
    return *this;
}

double DependantInfoStruct::GetDepNetIncConsideringF185(int index)
{
    if (index < 0 || index >= rowCount())
        return 0.0;
    return m_pData[index].m_NetIncome + F185Adjustment.m_value;
}

int DependantInfoStruct::GetInfirmDependantsNumberNotUnderAge(int minAge)
{
    int n = 0;
    for (int i = 0; i < rowCount(); ++i) {
        const _OneDependantInfoStru& row = m_pData[i];
        if (rowExists(i) && bornInTime(row) && (minAge <= 0 || ageOf(row) >= minAge)
            && isInfirm(row))
            ++n;
    }
    return n;
}

int DependantInfoStruct::GetDisabledDependantsBetweenAges(int minAge, int maxAge)
{
    int n = 0;
    for (int i = 0; i < rowCount(); ++i) {
        const _OneDependantInfoStru& row = m_pData[i];
        if (rowExists(i) && bornInTime(row) && inRange(ageOf(row), minAge, maxAge)
            && row.fld_Infirm.m_value == InfirmDisabled)
            ++n;
    }
    return n;
}

int DependantInfoStruct::GetInfirmDependentNumberUnderAge18()
{
    int n = 0;
    for (int i = 0; i < rowCount(); ++i) {
        const _OneDependantInfoStru& row = m_pData[i];
        const int year = birthYear(row);
        if (rowExists(i) && year >= LIBBEDROCK_MINOR_BIRTH_YEAR && year <= LIBBEDROCK_TAX_YEAR
            && isInfirm(row))
            ++n;
    }
    return n;
}

int DependantInfoStruct::GetDepChildrenNumberBetweenAges(int minAge, int maxAge)
{
    return GetDepNumberBetweenAges(minAge, maxAge);
}

int DependantInfoStruct::GetDepNumberBetweenAges(int minAge, int maxAge)
{
    int n = 0;
    for (int i = 0; i < rowCount(); ++i) {
        const _OneDependantInfoStru& row = m_pData[i];
        if (rowExists(i) && bornInTime(row) && inRange(ageOf(row), minAge, maxAge))
            ++n;
    }
    return n;
}

int DependantInfoStruct::GetDepChildrenNumberBetweenAges_Infirm(int minAge, int maxAge, bool infirm)
{
    int n = 0;
    for (int i = 0; i < rowCount(); ++i) {
        const _OneDependantInfoStru& row = m_pData[i];
        if (rowExists(i) && bornInTime(row) && inRange(ageOf(row), minAge, maxAge)
            && isInfirm(row) == infirm)
            ++n;
    }
    return n;
}

int DependantInfoStruct::GetDepNumberBetweenAgesAndRelation(int, int, int relation)
{
    int n = 0;
    for (int i = 0; i < rowCount(); ++i) {
        if (rowExists(i) && m_pData[i].m_Relation == relation)
            ++n;
    }
    return n;
}

int DependantInfoStruct::GetDepChildrenNumberForLine305()
{
    int n = 0;
    for (int i = 0; i < rowCount(); ++i) {
        const _OneDependantInfoStru& row = m_pData[i];
        if (rowExists(i) && bornInTime(row)
            && (birthYear(row) >= LIBBEDROCK_MINOR_BIRTH_YEAR || isInfirm(row)))
            ++n;
    }
    return n;
}

int DependantInfoStruct::GetDepOtherThanChildrenNumberForLine305()
{
    int n = 0;
    for (int i = 0; i < rowCount(); ++i) {
        const _OneDependantInfoStru& row = m_pData[i];
        if (!rowExists(i) || !bornInTime(row))
            continue;
        const qint32 relation = row.m_Relation;
        const bool parent = relation >= RelationFather && relation <= RelationGrandMother;
        const bool sibling = relation == RelationBrother || relation == RelationSister;
        if (parent || (sibling && (birthYear(row) >= LIBBEDROCK_MINOR_BIRTH_YEAR || isInfirm(row))))
            ++n;
    }
    return n;
}

int DependantInfoStruct::GetMonthsDepChildrenAtAge_Infirm(int age)
{
    int months = 0;
    for (int i = 0; i < rowCount(); ++i) {
        const _OneDependantInfoStru& row = m_pData[i];
        if (rowExists(i) && ageOf(row) == age)
            months += row.m_BirthDate.isValid() ? row.m_BirthDate.month() : 0;
    }
    return months;
}

bool DependantInfoStruct::ValidateAndCorrectDepIndex(int& index)
{
    if (index == 0)
        return false;
    if (index < 0 || index > rowCount() || !rowExists(index - 1)) {
        index = 0;
        return true;
    }
    return false;
}
