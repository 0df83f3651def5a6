#include "medexpinfo.h"

#include "household_p.h"
#include "logging_p.h"
#include "mydatastream.h"

#include <QBuffer>

#include <algorithm>
#include <memory>
#include <new>

namespace {

constexpr unsigned int MedExpVersion = 0x100d2;
constexpr unsigned int NoClaimFlagVersion = 0x10185;
// What a record without rows comes out of serilize with.
constexpr int DefaultRowCount = 12;

// The bytes one row takes in `version`: what an empty row writes, every
// field of it being of fixed size. 0 for archives older than the rows' fields.
qint64 rowBytes(int version)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    MyDataStream out(&buffer);
    _OneDepMedExpInfoStru row;
    row.serilize(version, out);
    return bytes.size();
}

} // namespace

_OneDepMedExpInfoStru::_OneDepMedExpInfoStru()
    : fld_medexp(0.0, 0, false, MedExpVersion)
    , fld_disabled_nodisablityclaim(0, 0, FIELD_ATTR_NONE, 0, NoClaimFlagVersion)
    , fld_medexp_other(0.0, 0, false, MedExpVersion)
    , fld_medexp_attcare(0.0, 0, false, MedExpVersion)
    , fld_medexp_van(0.0, 0, false, MedExpVersion)
    , fld_medexp_move(0.0, 0, false, MedExpVersion)
{
    fld_medexp.m_name = "fld_medexp";
    fld_disabled_nodisablityclaim.m_name = "fld_disabled_nodisablityclaim";
    fld_medexp_other.m_name = "fld_medexp_other";
    fld_medexp_attcare.m_name = "fld_medexp_attcare";
    fld_medexp_van.m_name = "fld_medexp_van";
    fld_medexp_move.m_name = "fld_medexp_move";
    m_fields = { &fld_medexp,       &fld_disabled_nodisablityclaim,
                 &fld_medexp_other, &fld_medexp_attcare,
                 &fld_medexp_van,   &fld_medexp_move };
}

_OneDepMedExpInfoStru::_OneDepMedExpInfoStru(const _OneDepMedExpInfoStru& other)
    : _OneDepMedExpInfoStru()
{
    // operator= only reads its argument.
    *this = const_cast<_OneDepMedExpInfoStru&>(other);
}

void _OneDepMedExpInfoStru::ClearData()
{
    Common_ClearData_Func(&m_fields);
}

bool _OneDepMedExpInfoStru::operator==(_OneDepMedExpInfoStru& other)
{
    return !Common_Func_OperatorNotEqual(m_fields, other.m_fields);
}

_OneDepMedExpInfoStru& _OneDepMedExpInfoStru::operator=(_OneDepMedExpInfoStru& other)
{
    if (this != &other)
        Common_Func_OperatorAssign(other.m_fields, m_fields);
    return *this;
}

void _OneDepMedExpInfoStru::serilize(int version, MyDataStream& stream)
{
    Common_Serialize_Func(version, stream, m_fields);
}

_MedExpInfoStruct::_MedExpInfoStruct()
    : fld_nDepNum(0, 0, FIELD_ATTR_NONE, 0, MedExpVersion)
    , fld_medexp(0.0, 0, false, MedExpVersion)
    , fld_disabled_nodisablityclaim(0, 0, FIELD_ATTR_NONE, 0, NoClaimFlagVersion)
    , fld_medexp_other(0.0, 0, false, MedExpVersion)
    , fld_medexp_attcare(0.0, 0, false, MedExpVersion)
    , fld_medexp_van(0.0, 0, false, MedExpVersion)
    , fld_medexp_move(0.0, 0, false, MedExpVersion)
    , fld_medexp_spouse(0.0, 0, false, MedExpVersion)
    , fld_disabled_nodisablityclaim_spouse(0, 0, FIELD_ATTR_NONE, 0, NoClaimFlagVersion)
    , fld_medexp_other_spouse(0.0, 0, false, MedExpVersion)
    , fld_medexp_attcare_spouse(0.0, 0, false, MedExpVersion)
    , fld_medexp_van_spouse(0.0, 0, false, MedExpVersion)
    , fld_medexp_move_spouse(0.0, 0, false, MedExpVersion)
    , m_pData(nullptr)
    , m_nAllocated(0)
{
    fld_nDepNum.m_name = "fld_nDepNum";
    fld_medexp.m_name = "fld_medexp";
    fld_disabled_nodisablityclaim.m_name = "fld_disabled_nodisablityclaim";
    fld_medexp_other.m_name = "fld_medexp_other";
    fld_medexp_attcare.m_name = "fld_medexp_attcare";
    fld_medexp_van.m_name = "fld_medexp_van";
    fld_medexp_move.m_name = "fld_medexp_move";
    fld_medexp_spouse.m_name = "fld_medexp_spouse";
    fld_disabled_nodisablityclaim_spouse.m_name = "fld_disabled_nodisablityclaim_spouse";
    fld_medexp_other_spouse.m_name = "fld_medexp_other_spouse";
    fld_medexp_attcare_spouse.m_name = "fld_medexp_attcare_spouse";
    fld_medexp_van_spouse.m_name = "fld_medexp_van_spouse";
    fld_medexp_move_spouse.m_name = "fld_medexp_move_spouse";
    m_fields = { &fld_nDepNum,
                 &fld_medexp,
                 &fld_disabled_nodisablityclaim,
                 &fld_medexp_other,
                 &fld_medexp_attcare,
                 &fld_medexp_van,
                 &fld_medexp_move,
                 &fld_medexp_spouse,
                 &fld_disabled_nodisablityclaim_spouse,
                 &fld_medexp_other_spouse,
                 &fld_medexp_attcare_spouse,
                 &fld_medexp_van_spouse,
                 &fld_medexp_move_spouse };
}

_MedExpInfoStruct::_MedExpInfoStruct(const _MedExpInfoStruct& other)
    : _MedExpInfoStruct()
{
    // operator= only reads its argument.
    *this = const_cast<_MedExpInfoStruct&>(other);
}

_MedExpInfoStruct::~_MedExpInfoStruct()
{
    FreeData();
}

int _MedExpInfoStruct::rowCount() const
{
    return m_pData ? std::clamp(fld_nDepNum.m_value, 0, m_nAllocated) : 0;
}

void _MedExpInfoStruct::AllocData(int count)
{
    FreeData();
    count = std::max(0, count);
    // An allocation that cannot be had leaves the record empty instead of throwing.
    m_pData = new (std::nothrow) _OneDepMedExpInfoStru[size_t(count)];
    if (!m_pData)
        return;
    fld_nDepNum.m_value = count;
    m_nAllocated = count;
}

void _MedExpInfoStruct::FreeData()
{
    delete[] m_pData;
    m_pData = nullptr;
    fld_nDepNum.m_value = 0;
    m_nAllocated = 0;
}

void _MedExpInfoStruct::ClearData()
{
    Common_ClearData_Func(&m_fields);
    for (int i = 0; i < rowCount(); ++i)
        m_pData[i].ClearData();
}

void _MedExpInfoStruct::serilize(int version, MyDataStream& stream)
{
    const bool storing = stream.IsStoring();
    Common_Serialize_Func(version, stream, m_fields);
    const int count = fld_nDepNum.m_value;
    if (count > 0) {
        if (storing) {
            // A count set by hand beyond the array still gets as many rows as
            // it announces, empty ones, so the archive stays readable.
            _OneDepMedExpInfoStru blank;
            for (int i = 0; i < count; ++i)
                (i < rowCount() ? m_pData[i] : blank).serilize(version, stream);
            return;
        }
        const qint64 bytes = rowBytes(version);
        if (bytes == 0) {
            // Rows of this version hold nothing: the count is the object's own.
            AllocData(count);
            return;
        }
        const auto rows = Bedrock::readAnnouncedRows<_OneDepMedExpInfoStru>(
            stream, version, count, bytes, "medical record");
        AllocData(int(rows.size()));
        for (int i = 0; i < rowCount(); ++i)
            m_pData[i] = *rows[size_t(i)];
        return;
    }
    // No rows in the archive, storing or loading alike: the record comes out
    // with twelve empty rows, as records older than the count always did.
    AllocData(DefaultRowCount);
}

bool _MedExpInfoStruct::operator==(_MedExpInfoStruct& other)
{
    if (Common_Func_OperatorNotEqual(m_fields, other.m_fields))
        return false;
    if (fld_nDepNum.m_value < 1)
        return true;
    const int rows = rowCount();
    // A side with fewer rows differs rather than being read past its end.
    if (rows > other.rowCount())
        return false;
    for (int i = 0; i < rows; ++i) {
        if (!(m_pData[i] == other.m_pData[i]))
            return false;
    }
    return true;
}

_MedExpInfoStruct& _MedExpInfoStruct::operator=(_MedExpInfoStruct& other)
{
    if (this == &other)
        return *this;
    AllocData(other.rowCount());
    for (int i = 0; i < rowCount(); ++i)
        m_pData[i] = other.m_pData[i];
    Common_Func_OperatorAssign(other.m_fields, m_fields);
    return *this;
}
