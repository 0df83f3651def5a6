#include "cstringfield.h"

#include "cmemoryblock.h"
#include "mydatastream.h"

#include <algorithm>
#include <cstring>

bool CStringField::p_for_large_size_serialize = false;
unsigned int CStringField::p_for_large_size_serialize_version = 0;
unsigned int CStringField::p_for_large_size_serialize_size = 0;

CStringField::CStringField(const char* text, int maxLen)
    : CField(0, false, ARCHIVE_VERSION_FIRST, ARCHIVE_VERSION_NO_END, FIELD_ATTR_NONE, 0)
    , m_text(text)
    , m_nMaxLen(maxLen)
{ }

CStringField::CStringField(int id, const char* text, int maxLen, unsigned int version)
    : CField(id, false, version, ARCHIVE_VERSION_NO_END, FIELD_ATTR_NONE, 0)
    , m_text(text)
    , m_nMaxLen(maxLen)
{ }

CStringField::CStringField(int id, const char* text, int maxLen, ENUMTYPE_FIELD_ATTR attr, int tag,
                           unsigned int version)
    : CField(id, false, version, ARCHIVE_VERSION_NO_END, attr, tag)
    , m_text(text)
    , m_nMaxLen(maxLen)
{ }

void CStringField::setLargeSizeSerializeOption(unsigned int version, unsigned int size)
{
    p_for_large_size_serialize = true;
    p_for_large_size_serialize_version = version;
    p_for_large_size_serialize_size = size;
}

CStringField& CStringField::operator=(const CStringField& other)
{
    m_text = other.m_text;
    return *this;
}

CStringField& CStringField::operator=(const CString& text)
{
    m_text = text;
    return *this;
}

bool CStringField::operator!=(const CStringField& other) const
{
    return m_text.simplified() != other.m_text.simplified();
}

CStringField::operator std::string() const
{
    return m_text.trimmed().toStdString();
}

CString CStringField::GetTrimedString() const
{
    return CString(m_text.trimmed());
}

bool CStringField::IsEmptyIfRemoveBlank() const
{
    return m_text.trimmed().isEmpty();
}

bool CStringField::IsAllZero() const
{
    for (const QChar c : m_text) {
        if (c != QLatin1Char('0'))
            return false;
    }
    return true;
}

void CStringField::RemoveBlanks()
{
    m_text = m_text.trimmed();
}

void CStringField::removeContinuousSpaces()
{
    removeContinuousSpace(m_text);
}

void CStringField::removeCOInAddr()
{
    // The order is old behaviour: "A/S" and "C/O" go before their colon forms,
    // which therefore never match, and the colon stays behind.
    static const char* const markers[] = { "A/S", "A/S:", "C/O", "C/O:", "c/o", "C/o", "c/O" };
    for (const char* marker : markers)
        m_text.remove(QLatin1String(marker), Qt::CaseSensitive);
}

int CStringField::ValidateAndCorrect()
{
    if (m_attr & FIELD_ATTR_KEEP_SPACES)
        return 0;
    RemoveBlanks();
    removeContinuousSpace(m_text);
    return 0;
}

bool CStringField::canFieldSavedInXML()
{
    // Compared as unsigned: until the option is set the bound is 0 and every
    // string field is large, so none reaches the XML record.
    if (static_cast<unsigned int>(m_nMaxLen) >= p_for_large_size_serialize_size)
        return false;
    return CField::canFieldSavedInXML();
}

void CStringField::Serialize(unsigned int version, MyDataStream& stream)
{
    if (!isInVersion(version))
        return;

    if (p_for_large_size_serialize && p_for_large_size_serialize_version <= version
        && static_cast<unsigned int>(m_nMaxLen) >= p_for_large_size_serialize_size) {
        CMemoryBlock block;
        if (stream.IsStoring()) {
            const QByteArray utf8 = m_text.toUtf8();
            block.Append(utf8.constData(), int(utf8.size()));
            block.WriteToReturnArchive(stream);
        } else {
            block.ReadFromReturnArchive(stream);
            block.GetContent(m_text);
        }
        return;
    }

    if (m_nMaxLen < 0)
        return;
    if (stream.IsStoring()) {
        // Exactly m_nMaxLen bytes: the UTF-8 text with its NUL, cut at the
        // byte count, and zeros after it so no stale memory reaches the file.
        const QByteArray utf8 = m_text.toUtf8();
        QByteArray bytes(m_nMaxLen, '\0');
        const qsizetype copied = std::min<qsizetype>(m_nMaxLen, utf8.size());
        if (copied > 0)
            std::memcpy(bytes.data(), utf8.constData(), size_t(copied));
        stream.Write(bytes.constData(), m_nMaxLen);
    } else {
        QByteArray bytes(qsizetype(m_nMaxLen) + 1, '\0');
        const int read = stream.Read(bytes.data(), m_nMaxLen);
        // A cut archive leaves the field as it was.
        if (read != m_nMaxLen)
            return;
        // Read back as Latin-1 although stored as UTF-8: old archives carry
        // this asymmetry and their text must read as it always did.
        m_text = bytes.constData();
    }
}

int CStringField::readFromString(const CString& text)
{
    m_text = text;
    RemoveBlanks();
    m_text = m_text.Left(m_nMaxLen);
    return 0;
}

int CStringField::toString(CString& out)
{
    // Trims the field itself: the saved text and the field agree afterwards.
    RemoveBlanks();
    out = convertToXMLString(m_text.Left(m_nMaxLen));
    return 0;
}

CStringFieldNotused::CStringFieldNotused(int maxLen, unsigned int version, unsigned int versionEnd)
    : CStringField(0, "", maxLen, version)
{
    m_versionEnd = versionEnd;
}
