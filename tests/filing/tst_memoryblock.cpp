#include "cmemoryblock.h"
#include "fixedbarcodeitem.h"
#include "mydatastream.h"
#include "sequentialsource.h"

#include <QtTest>
#include <malloc.h>

namespace {

// Bytes unlike their neighbours, so a copy from the wrong place shows.
QByteArray pattern(int n)
{
    return QByteArray("0123456789abcdefg").repeated(n / 17 + 1).left(n);
}
QByteArray content(const CMemoryBlock& b)
{
    return QByteArray(b.GetData(), b.GetContentSize());
}

// A 32-bit little-endian size followed by the given bytes.
QByteArray record(qint32 n, QByteArray b)
{
    qToLittleEndian(n, b.prepend(4, 0).data());
    return b;
}

QByteArray written(CMemoryBlock& block, void (CMemoryBlock::*write)(MyDataStream&))
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    MyDataStream out(&buffer);
    (block.*write)(out);
    return bytes;
}

} // namespace

class tst_MemoryBlock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void growth_data()
    {
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("capacity");
        QTest::newRow("fresh block reserves one step") << 0 << 819600;
        QTest::newRow("the spare byte beyond capacity does not grow") << 819601 << 819600;
        QTest::newRow("two past capacity grows one step") << 819602 << 1639200;
        QTest::newRow("one past two steps grows two at once") << 1639201 << 2458800;
    }
    void growth()
    {
        QFETCH(int, length);
        QFETCH(int, capacity);
        CMemoryBlock block;
        block.Append(pattern(length).constData(), length);
        QCOMPARE(block.GetCapacity(), capacity);
    }

    void ownBytesAcrossGrowthAndXor()
    {
        mallopt(M_PERTURB, 0xa5); // freed memory is scribbled, so reading the old array shows
        const QByteArray bytes = pattern(CMemoryBlock::BlockSize);
        CMemoryBlock block;
        block.Append(bytes.constData(), int(bytes.size()));
        // The source lies in the array that this growth frees.
        block.Append(block.GetData() + 100, CMemoryBlock::BlockSize - 100);
        QCOMPARE(block.GetCapacity(), 2 * CMemoryBlock::BlockSize);
        QVERIFY(content(block) == bytes + bytes.mid(100));
        const unsigned char key[] = { 0x5a, 0x00, 0xff };
        block.XORWith(key, 3);
        QCOMPARE(content(block).left(4), QByteArray("\x6a\x31\xcd\x69"));
        block.XORWith(key, 3);
        QVERIFY(content(block) == bytes + bytes.mid(100));
    }

    void loadFile()
    {
        QTemporaryDir dir;
        const QByteArray path = dir.filePath(QStringLiteral("in.txt")).toUtf8();
        CMemoryBlock block;
        block.Append("xy");
        QCOMPARE(block.LoadFile(path), 107); // no file yet
        QFile file(QString::fromUtf8(path));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(block.LoadFile(path), -2); // an empty file leaves the block alone
        QVERIFY(file.write("hello\n") == 6 && file.flush());
        QCOMPARE(block.LoadFile(path), 0);
        QCOMPARE(content(block), QByteArray("xyhello\n\0", 9)); // n + 1 bytes, not cleared first
    }

    void t1Barcode()
    {
        const auto barcode = &CMemoryBlock::WriteToT1BarcodeArchive;
        CMemoryBlock block;
        QCOMPARE(written(block, barcode), record(4, "0004")); // an empty block counts its digits
        block.Append(pattern(996).constData(), 996);
        QCOMPARE(written(block, barcode), record(1000, "1000" + pattern(996)));
        block.Append(pattern(11345).constData(), 11345);
        // A five-digit length keeps its leading four digits.
        QCOMPARE(written(block, barcode), record(12345, "1234" + content(block)));
    }

    void returnArchive_data()
    {
        QTest::addColumn<bool>("pipe");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("loaded");
        QTest::addColumn<int>("maxCapacity");
        const QByteArray big = pattern(1536 * 1024);
        QTest::newRow("stored size 0") << false << record(0, "x") << QByteArray() << 819600;
        QTest::newRow("more than a fresh block takes exactly n")
            << false << record(big.size(), big) << big << int(big.size());
        QTest::newRow("pipe: body over several reads")
            << true << record(big.size(), big) << big << 2458800;
        // A hostile size must not buy a 2 GiB allocation: the block takes what is there.
        QTest::newRow("size beyond the stream")
            << false << record(0x7fffffff, "abc") << QByteArray("abc") << 819600;
        QTest::newRow("pipe: size beyond the stream grows by one read at most")
            << true << record(0x7fffffff, "abc") << QByteArray("abc") << 1639200;
    }
    void returnArchive()
    {
        QFETCH(bool, pipe);
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, loaded);
        QFETCH(int, maxCapacity);
        SequentialSource pipeDevice(bytes); // cannot tell how much is left
        QBuffer fileDevice(&bytes);
        fileDevice.open(QIODevice::ReadOnly);
        MyDataStream in(pipe ? static_cast<QIODevice*>(&pipeDevice) : &fileDevice);
        CMemoryBlock block;
        block.Append("stale content that a load replaces");
        QCOMPARE(block.ReadFromReturnArchive(in), int(loaded.size()));
        QVERIFY(content(block) == loaded);
        QVERIFY(block.GetCapacity() <= maxCapacity);
        // A record that holds less than it announces is flagged.
        const bool whole = qFromLittleEndian<qint32>(bytes.constData()) <= loaded.size();
        QCOMPARE(in.status(), whole ? QDataStream::Ok : QDataStream::ReadPastEnd);
        const QByteArray again = written(block, &CMemoryBlock::WriteToReturnArchive);
        QVERIFY(again == record(loaded.size(), loaded));
    }

    void getContent()
    {
        CMemoryBlock block;
        block.Append("abcdef");
        QByteArray dst(9, '#');
        // The offset does not shift the source; past the content come zeros, not stale bytes.
        QCOMPARE(block.GetContent(2, dst.data(), 8), 8);
        QCOMPARE(dst, QByteArray("abcdef\0\0#", 9));
        QCOMPARE(block.GetContent(819598, dst.data(), 5), 2); // the capacity limits the count
        QCOMPARE(block.GetContent(819601, dst.data(), 5), -1);
    }

    void searchString()
    {
        CMemoryBlock block;
        block.Append("abc\0hello\0xyz\0", 14);
        int pos = 0;
        QCOMPARE(block.SearchString("bc", pos), block.GetData() + 1);
        QCOMPARE(pos, 3); // from 0, a hit in the first string gives the plain end of the match
        pos = 0;
        QCOMPARE(block.SearchString("llo", pos), block.GetData() + 6);
        QCOMPARE(pos, 13); // a later string adds the hit's block offset to the advanced pos
    }

    void padding_data()
    {
        QTest::addColumn<QByteArray>("input"); // null: a null pointer
        QTest::addColumn<QByteArray>("left");
        QTest::addColumn<QByteArray>("right");
        QTest::newRow("short value is padded")
            << QByteArray("12") << QByteArray("00012") << QByteArray("12000");
        QTest::newRow("long value keeps its first bytes")
            << QByteArray("123456") << QByteArray("12345") << QByteArray("12345");
        QTest::newRow("null counts as empty")
            << QByteArray() << QByteArray("00000") << QByteArray("00000");
    }
    void padding()
    {
        QFETCH(QByteArray, input);
        QFETCH(QByteArray, left);
        QFETCH(QByteArray, right);
        const char* s = input.isNull() ? nullptr : input.constData();
        List_FixedBarcodeItem list;
        FixedBarcodeItem l(&list, 5, "abcde"), r(&list, 5, "abcde");
        QCOMPARE(l.SetValueLeftPadding(s, '0'), int(input.size()));
        QCOMPARE(r.SetValueRightPadding(s, '0'), int(input.size()));
        QCOMPARE(l.GetValue(), left.constData());
        QCOMPARE(r.GetValue(), right.constData());
    }

    void barcodeOutputAndLifetimes()
    {
        auto* list = new List_FixedBarcodeItem;
        FixedBarcodeItem name(list, 3, "abcdef");
        name.SetValue("xy"); // the rest stays
        FixedBarcodeItem none(list, 0, "zzz");
        delete new FixedBarcodeItem(list, 3, "bad"); // removes itself from the list
        FixedBarcodeItem code(list, 4, "de"); // strncpy: the rest becomes zero bytes
        CMemoryBlock block;
        QCOMPARE(list->OutputToMemoryBlock(block), 7);
        QCOMPARE(content(block), QByteArray("xycde\0\0", 7));
        auto* orphan = new FixedBarcodeItem(list, 1, "x");
        delete list;
        delete orphan; // must not reach into the destroyed list
    }
};

QTEST_GUILESS_MAIN(tst_MemoryBlock)
#include "tst_memoryblock.moc"
