// A small application that knows the library only through its installed headers.
#include <LibBedrock.h>

#include <QBuffer>
#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    CFloatField amount(0.0, 10100);
    amount = 1234.565;
    CString text;
    amount.toString(text);

    CMemoryBlock block;
    block.Append(text.toStdStringUTF8().c_str());
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    MyDataStream out(&buffer);
    block.WriteToReturnArchive(out);

    const bool ok = text == CString("1234.57") && buffer.size() == 4 + 7
        && qInitResources_libbedrock() != 0 && LIBBEDROCK_TAX_YEAR >= 2025;
    std::printf("%s\n", ok ? "consumer ok" : "consumer FAILED");
    return ok ? 0 : 1;
}
