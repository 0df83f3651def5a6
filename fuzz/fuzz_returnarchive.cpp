// Arbitrary bytes as a return-archive stream: a plain block read, then the
// same bytes through a sequential device, which cannot tell its size.
#include "cmemoryblock.h"
#include "mydatastream.h"

#include <QBuffer>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

// A device that hides its size, like a pipe or a socket.
class SequentialSource : public QIODevice
{
public:
    explicit SequentialSource(const QByteArray& bytes)
        : m_bytes(bytes)
    {
        open(ReadOnly);
    }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 max) override
    {
        const qint64 n = std::min<qint64>(max, m_bytes.size() - m_at);
        std::memcpy(data, m_bytes.constData() + m_at, size_t(n));
        m_at += n;
        return n;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_bytes;
    qint64 m_at = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    {
        QBuffer buffer;
        buffer.setData(bytes);
        buffer.open(QIODevice::ReadOnly);
        MyDataStream in(&buffer);
        CMemoryBlock block;
        while (!buffer.atEnd() && in.status() == QDataStream::Ok) {
            const int got = block.ReadFromReturnArchive(in);
            if (got > block.GetCapacity() || got > int(size))
                __builtin_trap();
        }
        int pos = 0;
        block.SearchString("<m>", pos, false);
        CString text;
        block.GetContent(text);
    }
    {
        SequentialSource source(bytes);
        MyDataStream in(&source);
        CMemoryBlock block;
        if (block.ReadFromReturnArchive(in) > int(size))
            __builtin_trap();
    }
    return 0;
}
