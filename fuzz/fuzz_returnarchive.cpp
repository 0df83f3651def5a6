// Arbitrary bytes as a return-archive stream: a plain block read, then the
// same bytes through a sequential device, which cannot tell its size.
#include "cmemoryblock.h"
#include "mydatastream.h"
#include "sequentialsource.h"

#include <QBuffer>

#include <algorithm>
#include <cstdint>
#include <cstring>

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
