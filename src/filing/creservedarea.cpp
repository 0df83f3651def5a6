#include "creservedarea.h"

#include "cmemoryblock.h"

namespace {

// Without a key of the application's, the strings are still kept from the
// casual eye and checked for damage.
const char* const LibraryKeyText = "LibBedrock reserved area";

} // namespace

CReservedArea::CReservedArea()
    : m_key(QString::fromLatin1(LibraryKeyText))
{ }

CReservedArea::CReservedArea(CString const& key)
    : m_key(key)
{ }

void CReservedArea::setString(int index, CString const& text)
{
    if (index >= 0 && index < StringCount)
        m_strings[index] = text.Left(MaxLength);
}

void CReservedArea::getString(int index, CString& out) const
{
    out = (index >= 0 && index < StringCount) ? m_strings[index] : CString();
}

void CReservedArea::writeToArchive(MyDataStream& s) const
{
    // Plain content: the two strings in UTF-8, separated by one zero byte.
    CT1EncryptedMemoryBlock block(m_key);
    const QByteArray first = m_strings[0].toUtf8();
    const QByteArray second = m_strings[1].toUtf8();
    block.Append(first.constData(), int(first.size()));
    const char zero = '\0';
    block.Append(&zero, 1);
    block.Append(second.constData(), int(second.size()));
    block.WriteToReturnArchive(s);
}

bool CReservedArea::readFromArchive(MyDataStream& s)
{
    for (CString& text : m_strings)
        text = CString();
    CT1EncryptedMemoryBlock block(m_key);
    if (block.ReadFromReturnArchive(s) < 1)
        return false;
    const QByteArray plain(block.GetData(), block.GetContentSize());
    const qsizetype split = plain.indexOf('\0');
    if (split < 0)
        return false;
    m_strings[0] = CString(QString::fromUtf8(plain.left(split))).Left(MaxLength);
    m_strings[1] = CString(QString::fromUtf8(plain.mid(split + 1))).Left(MaxLength);
    return true;
}
