#include "mydatastream.h"

#include <QIODevice>

MyDataStream::MyDataStream(QIODevice* device)
    : QDataStream(device)
{
    setByteOrder(QDataStream::LittleEndian);
}

// A stream without a device is outside the contract; it answers false to both.
bool MyDataStream::IsLoading() const
{
    return device() && device()->isReadable();
}

bool MyDataStream::IsStoring() const
{
    return device() && device()->isWritable();
}

int MyDataStream::Read(char* buffer, int size)
{
    return readRawData(buffer, size);
}

int MyDataStream::Write(const char* buffer, int size)
{
    return writeRawData(buffer, size);
}
