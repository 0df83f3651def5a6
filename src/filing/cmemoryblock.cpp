#include "cmemoryblock.h"

#include "mydatastream.h"

#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <climits>
#include <cstring>

namespace {

// Largest single read from a sequential device before we see more data arrive:
// an announced size is never allocated up front on trust.
constexpr qint64 SequentialChunk = 1 << 20;

} // namespace

CMemoryBlock::CMemoryBlock()
    : m_data(nullptr)
    , m_capacity(BlockSize)
    , m_size(0)
    , m_allocated(0)
{ }

CMemoryBlock::~CMemoryBlock()
{
    delete[] m_data;
}

void CMemoryBlock::Init()
{
    m_size = 0;
}

// The capacity follows the stated growth rule; the array behind it grows
// geometrically as content arrives and never beyond capacity + 1 bytes. The
// extra byte is needed: the rule lets a block hold capacity + 1 bytes before it grows.
bool CMemoryBlock::reserveBytes(qint64 bytes)
{
    if (bytes <= m_allocated)
        return true;
    const qint64 limit = qint64(m_capacity) + 1;
    qint64 grownTo = std::max<qint64>({ bytes, m_allocated * 2, 4096 });
    grownTo = std::min(grownTo, std::max(limit, bytes));
    char* grown = new char[size_t(grownTo)];
    if (m_size > 0)
        std::memcpy(grown, m_data, size_t(m_size));
    delete[] m_data;
    m_data = grown;
    m_allocated = grownTo;
    return true;
}

bool CMemoryBlock::ensureRoom(qint64 need)
{
    if (need > qint64(m_capacity) + 1) {
        const qint64 missing = need - m_capacity;
        const qint64 steps = std::max<qint64>(1, (missing + BlockSize - 1) / BlockSize);
        const qint64 newCapacity = m_capacity + steps * BlockSize;
        if (newCapacity >= INT_MAX)
            return false;
        m_capacity = int(newCapacity);
    }
    return reserveBytes(need);
}

void CMemoryBlock::Append(char const* data, int len)
{
    if (!data || len <= 0)
        return;
    // Bytes of the block itself stay readable across the growth below.
    const bool own = m_data && data >= m_data && data < m_data + m_allocated;
    const qint64 ownOffset = own ? data - m_data : 0;
    if (!ensureRoom(qint64(m_size) + len))
        return;
    if (own)
        data = m_data + ownOffset;
    std::memmove(m_data + m_size, data, size_t(len));
    m_size += len;
}

void CMemoryBlock::Append(char const* s)
{
    if (s)
        Append(s, int(std::min<size_t>(std::strlen(s), INT_MAX)));
}

void CMemoryBlock::AppendEnding0()
{
    if (m_size < m_capacity && reserveBytes(qint64(m_size) + 1))
        m_data[m_size] = '\0';
}

int CMemoryBlock::LoadFile(char const* path)
{
    QFile file(QString::fromUtf8(path ? path : ""));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return 107;
    QTextStream in(&file);
    const QByteArray bytes = in.readAll().toUtf8();
    if (bytes.isEmpty())
        return -2;
    Append(bytes.constData(), int(bytes.size()));
    // The terminator counts in the size, so a loaded file reads as one C string.
    const char zero = '\0';
    Append(&zero, 1);
    return 0;
}

void CMemoryBlock::WriteToT1BarcodeArchive(MyDataStream& s)
{
    // A block read from a file may reach the 32-bit limit; the length saturates there.
    const qint32 total = qint32(std::min<qint64>(qint64(m_size) + 4, INT_MAX));
    s << total;
    // The length counts the four digits that follow it; a five-digit length
    // keeps only its leading four, as the barcode readers expect.
    char digits[16];
    std::snprintf(digits, sizeof digits, "%04d", int(total));
    s.writeRawData(digits, 4);
    if (m_size >= 1)
        s.writeRawData(m_data, m_size);
}

void CMemoryBlock::WriteContentToArchive(MyDataStream& s)
{
    if (m_size >= 1)
        s.writeRawData(m_data, m_size);
}

void CMemoryBlock::WriteToT1013Archive(MyDataStream& s)
{
    s << qint32(m_size);
    WriteContentToArchive(s);
}

void CMemoryBlock::WriteToReturnArchive(MyDataStream& s)
{
    s << qint32(m_size);
    WriteContentToArchive(s);
}

int CMemoryBlock::ReadFromReturnArchive(MyDataStream& s)
{
    qint32 announced = 0;
    s >> announced;
    m_size = 0;
    QIODevice* device = s.device();
    if (announced < 1 || !device)
        return 0;

    if (!device->isSequential()) {
        // A size read from a file is checked against what the file still holds:
        // a hostile record cannot make us allocate more than the input justifies.
        const qint64 available = std::max<qint64>(0, device->bytesAvailable());
        const qint64 want = std::min<qint64>(announced, available);
        if (want > m_capacity)
            m_capacity = int(want);
        reserveBytes(want);
        const int got = want > 0 ? s.readRawData(m_data, int(want)) : 0;
        m_size = std::max(0, got);
        if (want < announced)
            s.setStatus(QDataStream::ReadPastEnd);
        return m_size;
    }

    // A sequential device cannot say how much is left: grow with what arrives.
    qint64 remaining = announced;
    while (remaining > 0) {
        const int chunk = int(std::min(remaining, SequentialChunk));
        if (!ensureRoom(qint64(m_size) + chunk))
            break;
        const int got = s.readRawData(m_data + m_size, chunk);
        if (got <= 0)
            break;
        m_size += got;
        remaining -= got;
        if (got < chunk)
            break;
    }
    if (remaining > 0)
        s.setStatus(QDataStream::ReadPastEnd);
    return m_size;
}

int CMemoryBlock::GetContent(int offset, char* dst, int len) const
{
    // offset only limits the count and the limit is the capacity; callers ask
    // with offset 0. Bytes past the content come out as zeros, never as stale memory.
    qint64 count = len;
    if (qint64(len) + offset > m_capacity)
        count = qint64(m_capacity) - offset;
    if (count < 1 || !dst)
        return int(count);
    const qint64 fromContent = std::min<qint64>(count, m_size);
    if (fromContent > 0)
        std::memcpy(dst, m_data, size_t(fromContent));
    if (count > fromContent)
        std::memset(dst + fromContent, 0, size_t(count - fromContent));
    return int(count);
}

int CMemoryBlock::GetContent(CString& out) const
{
    if (m_size < 1) {
        out = CString();
        return 0;
    }
    out = QString::fromLocal8Bit(m_data, m_size);
    return m_size;
}

char* CMemoryBlock::SearchString(char const* s, int& pos, bool)
{
    if (!m_data || !s || pos < 0)
        return nullptr;
    const qint64 needle = qint64(std::strlen(s));
    if (needle + pos >= m_size)
        return nullptr;
    for (;;) {
        char* start = m_data + pos;
        const qint64 len = qint64(::strnlen(start, size_t(m_size - pos)));
        if (len >= needle) {
            char* hit = std::search(start, start + len, s, s + needle);
            if (hit != start + len || needle == 0) {
                // The match's offset from the block's start is added to pos,
                // not put in its place: callers rely on this arithmetic.
                const qint64 next = qint64(pos) + (hit - m_data) + needle;
                pos = int(std::min<qint64>(next, INT_MAX));
                return hit;
            }
        }
        pos = int(std::min<qint64>(qint64(pos) + len + 1, INT_MAX));
        if (qint64(pos) + needle >= m_size)
            return nullptr;
    }
}

void CMemoryBlock::dumpToLogfile(FILE* f) const
{
    if (!f)
        return;
    std::fputs("\n--begin--\n", f);
    if (m_size > 0)
        std::fwrite(m_data, 1, size_t(m_size), f);
    std::fputs("\n--end--\n", f);
    std::fflush(f);
}

void CMemoryBlock::XORWith(unsigned char const* key, int len)
{
    if (!key || len <= 0)
        return;
    for (int i = 0; i < m_size; ++i)
        m_data[i] = char(static_cast<unsigned char>(m_data[i]) ^ key[i % len]);
}

void CMemoryBlock::setContent(const char* data, int len)
{
    m_size = 0;
    Append(data, len);
}
