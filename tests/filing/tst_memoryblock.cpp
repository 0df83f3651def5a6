#include "cmemoryblock.h"
#include "fixedbarcodeitem.h"
#include "mydatastream.h"
#include "sequentialsource.h"
#include "streambytes.h"
#include "tempfiles.h"

#include <QtTest>

#include <cstdio>
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

} // namespace

class tst_MemoryBlock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void growth_data();
    void growth();
    void initKeepsCapacity();
    void appendEnding0();
    void appendFromOwnBytes();
    void xorWith();
    void loadFile_data();
    void loadFile();
    void t1Barcode_data();
    void t1Barcode();
    void plainArchives_data();
    void plainArchives();
    void returnArchive_data();
    void returnArchive();
    void hostileSize_data();
    void hostileSize();
    void returnArchiveRoundTrip_data();
    void returnArchiveRoundTrip();
    void getContent_data();
    void getContent();
    void getContentText_data();
    void getContentText();
    void searchString_data();
    void searchString();
    void dumpToLogfile_data();
    void dumpToLogfile();
    void itemValues_data();
    void itemValues();
    void itemValuesAsUtf8_data();
    void itemValuesAsUtf8();
    void itemWidths_data();
    void itemWidths();
    void itemsInCreationOrder();
};

// The block grows only when the need passes capacity + 1, by whole steps.
void tst_MemoryBlock::growth_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::addColumn<int>("capacity");

    QTest::newRow("fresh block reserves one step") << 0 << 0 << 819600;
    QTest::newRow("filling the capacity does not grow") << 819600 << 0 << 819600;
    QTest::newRow("the spare byte beyond capacity does not grow") << 819601 << 0 << 819600;
    QTest::newRow("two past capacity grows one step") << 819602 << 0 << 1639200;
    QTest::newRow("need exactly two steps grows one") << 1639200 << 0 << 1639200;
    QTest::newRow("one past two steps grows two at once") << 1639201 << 0 << 2458800;
    QTest::newRow("need counts what the block holds") << 819601 << 1 << 1639200;
    QTest::newRow("a grown block grows from its own capacity") << 819602 << 819600 << 2458800;
}

void tst_MemoryBlock::growth()
{
    QFETCH(int, first);
    QFETCH(int, second);
    QFETCH(int, capacity);

    const QByteArray bytes = pattern(first + second);
    CMemoryBlock block;
    block.Append(bytes.constData(), first);
    block.Append(bytes.constData() + first, second);
    QCOMPARE(block.GetCapacity(), capacity);
    QCOMPARE(block.GetContentSize(), first + second);
    QVERIFY(content(block) == bytes);
}

void tst_MemoryBlock::initKeepsCapacity()
{
    CMemoryBlock block;
    block.Append(pattern(819602).constData(), 819602);
    block.Init();
    QCOMPARE(block.GetContentSize(), 0);
    QCOMPARE(block.GetCapacity(), 1639200);
}

void tst_MemoryBlock::appendEnding0()
{
    CMemoryBlock block;
    block.Append("abcd");
    block.Init(); // the old bytes stay behind the new content
    block.Append("ab");
    block.AppendEnding0();
    QCOMPARE(block.GetContentSize(), 2);
    QCOMPARE(QByteArray(block.GetData(), 4), QByteArray("ab\0d", 4));
}

void tst_MemoryBlock::appendFromOwnBytes()
{
    mallopt(M_PERTURB, 0xa5); // freed memory is scribbled, so reading the old array shows
    const QByteArray bytes = pattern(CMemoryBlock::BlockSize);
    CMemoryBlock block;
    block.Append(bytes.constData(), int(bytes.size()));
    // The source lies in the array that this growth frees.
    block.Append(block.GetData() + 100, CMemoryBlock::BlockSize - 100);
    QCOMPARE(block.GetCapacity(), 2 * CMemoryBlock::BlockSize);
    QVERIFY(content(block) == bytes + bytes.mid(100));
}

void tst_MemoryBlock::xorWith()
{
    const unsigned char key[] = { 0x5a, 0x00, 0xff };
    CMemoryBlock block;
    block.Append("0123");
    block.XORWith(key, 3);
    QCOMPARE(content(block), QByteArray("\x6a\x31\xcd\x69")); // the key starts over
    block.XORWith(key, 3);
    QCOMPARE(content(block), QByteArray("0123"));
}

void tst_MemoryBlock::loadFile_data()
{
    QTest::addColumn<QByteArray>("file"); // null: no file
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("after");

    QTest::newRow("missing file gives 107")
        << QByteArray() << QByteArray("xy") << 107 << QByteArray("xy");
    QTest::newRow("empty file gives -2 and leaves the block alone")
        << QByteArray("") << QByteArray("xy") << -2 << QByteArray("xy");
    QTest::newRow("n bytes add n + 1, the terminator counted")
        << QByteArray("hello\n") << QByteArray() << 0 << QByteArray("hello\n\0", 7);
    QTest::newRow("loading appends to what is there")
        << QByteArray("hello\n") << QByteArray("xy") << 0 << QByteArray("xyhello\n\0", 9);
    QTest::newRow("one byte is not empty")
        << QByteArray("z") << QByteArray() << 0 << QByteArray("z\0", 2);
    QTest::newRow("text is kept as UTF-8")
        << QByteArray("\xc3\xa9") << QByteArray() << 0 << QByteArray("\xc3\xa9\0", 3);
}

void tst_MemoryBlock::loadFile()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, before);
    QFETCH(int, result);
    QFETCH(QByteArray, after);

    QTemporaryDir dir;
    const QString path = file.isNull() ? dir.filePath(QStringLiteral("missing.txt"))
                                       : writeTempFile(dir, QStringLiteral("in.txt"), file);
    QVERIFY(!path.isEmpty());
    CMemoryBlock block;
    block.Append(before.constData(), int(before.size()));
    QCOMPARE(block.LoadFile(path.toUtf8().constData()), result);
    QCOMPARE(content(block), after);
}

// The length counts the four digits that follow it, which repeat it as text.
void tst_MemoryBlock::t1Barcode_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<qint32>("total");
    QTest::addColumn<QByteArray>("digits");

    QTest::newRow("empty block counts its digits") << 0 << 4 << QByteArray("0004");
    QTest::newRow("four digits, no leading zero") << 996 << 1000 << QByteArray("1000");
    QTest::newRow("largest four-digit length") << 9995 << 9999 << QByteArray("9999");
    QTest::newRow("five digits keep the leading four") << 9996 << 10000 << QByteArray("1000");
    QTest::newRow("a longer length is cut, not rounded") << 12341 << 12345 << QByteArray("1234");
}

void tst_MemoryBlock::t1Barcode()
{
    QFETCH(int, size);
    QFETCH(qint32, total);
    QFETCH(QByteArray, digits);

    const QByteArray bytes = pattern(size);
    CMemoryBlock block;
    block.Append(bytes.constData(), size);
    const QByteArray written
        = storeBytes([&](MyDataStream& s) { block.WriteToT1BarcodeArchive(s); });
    QCOMPARE(written, record(total, digits + bytes));
}

void tst_MemoryBlock::plainArchives_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("contentOnly");
    QTest::addColumn<QByteArray>("sized");

    QTest::newRow("empty block writes a zero size and no bytes")
        << QByteArray() << QByteArray() << record(0, QByteArray());
    QTest::newRow("bytes follow the size")
        << QByteArray("a\0b", 3) << QByteArray("a\0b", 3) << record(3, QByteArray("a\0b", 3));
}

void tst_MemoryBlock::plainArchives()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, contentOnly);
    QFETCH(QByteArray, sized);

    CMemoryBlock block;
    block.Append(bytes.constData(), int(bytes.size()));
    QCOMPARE(storeBytes([&](MyDataStream& s) { block.WriteContentToArchive(s); }), contentOnly);
    QCOMPARE(storeBytes([&](MyDataStream& s) { block.WriteToT1013Archive(s); }), sized);
    QCOMPARE(storeBytes([&](MyDataStream& s) { block.WriteToReturnArchive(s); }), sized);
}

// Loads into a block that holds something, so a load must replace it.
void tst_MemoryBlock::returnArchive_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("loaded");
    QTest::addColumn<int>("capacity");

    const QByteArray full = pattern(819601);
    QTest::newRow("negative stored size gives an empty block")
        << record(-1, "x") << QByteArray() << 819600;
    QTest::newRow("stored size 0 gives an empty block") << record(0, "x") << QByteArray() << 819600;
    QTest::newRow("stored size 1 reads one byte") << record(1, "xy") << QByteArray("x") << 819600;
    QTest::newRow("the capacity itself fits")
        << record(819600, full.left(819600)) << full.left(819600) << 819600;
    QTest::newRow("one past the capacity takes exactly n")
        << record(819601, full) << full << 819601;
}

void tst_MemoryBlock::returnArchive()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, loaded);
    QFETCH(int, capacity);

    CMemoryBlock block;
    block.Append("stale content that a load replaces");
    int result = -1;
    loadBytes(bytes, [&](MyDataStream& s) { result = block.ReadFromReturnArchive(s); });
    QCOMPARE(result, int(loaded.size()));
    QVERIFY(content(block) == loaded);
    QCOMPARE(block.GetCapacity(), capacity);
}

// A size read from the input is not allocated on trust: the block takes what is there.
void tst_MemoryBlock::hostileSize_data()
{
    QTest::addColumn<bool>("pipe");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("loaded");
    QTest::addColumn<int>("maxCapacity");
    QTest::addColumn<bool>("complete");

    const QByteArray big = pattern(1536 * 1024);
    QTest::newRow("pipe: body over several reads")
        << true << record(big.size(), big) << big << 1639200 << true;
    QTest::newRow("file: size beyond the stream")
        << false << record(0x7fffffff, "abc") << QByteArray("abc") << 819600 << false;
    QTest::newRow("pipe: size beyond the stream grows by one read at most")
        << true << record(0x7fffffff, "abc") << QByteArray("abc") << 1639200 << false;
    QTest::newRow("file: one byte short is flagged")
        << false << record(4, "abc") << QByteArray("abc") << 819600 << false;
    QTest::newRow("pipe: one byte short is flagged")
        << true << record(4, "abc") << QByteArray("abc") << 819600 << false;
}

void tst_MemoryBlock::hostileSize()
{
    QFETCH(bool, pipe);
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, loaded);
    QFETCH(int, maxCapacity);
    QFETCH(bool, complete);

    SequentialSource pipeDevice(bytes); // cannot tell how much is left
    QBuffer fileDevice(&bytes);
    fileDevice.open(QIODevice::ReadOnly);
    MyDataStream in(pipe ? static_cast<QIODevice*>(&pipeDevice) : &fileDevice);
    CMemoryBlock block;
    QCOMPARE(block.ReadFromReturnArchive(in), int(loaded.size()));
    QVERIFY(content(block) == loaded);
    QVERIFY(block.GetCapacity() <= maxCapacity);
    QCOMPARE(in.status(), complete ? QDataStream::Ok : QDataStream::ReadPastEnd);
}

void tst_MemoryBlock::returnArchiveRoundTrip_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("consumed");

    QTest::newRow("empty block") << QByteArray() << 4;
    QTest::newRow("bytes with zeros inside") << QByteArray("a\0\0b", 4) << 8;
}

void tst_MemoryBlock::returnArchiveRoundTrip()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, consumed);

    CMemoryBlock from, to;
    from.Append(bytes.constData(), int(bytes.size()));
    to.Append("stale");
    const QByteArray stored = storeBytes([&](MyDataStream& s) { from.WriteToReturnArchive(s); });
    QCOMPARE(loadBytes(stored, [&](MyDataStream& s) { to.ReadFromReturnArchive(s); }), consumed);
    QVERIFY(content(to) == bytes);
}

// Copies from the start whatever the offset: the offset only limits the count,
// and the limit is the capacity, not the size.
void tst_MemoryBlock::getContent_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("len");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("dst");

    QTest::newRow("the offset does not shift the source") << 2 << 4 << 4 << QByteArray("abcd#####");
    QTest::newRow("past the content come zeros, not stale bytes")
        << 0 << 8 << 8 << QByteArray("abcdef\0\0#", 9);
    QTest::newRow("offset + len at the capacity is not limited")
        << 819596 << 4 << 4 << QByteArray("abcd#####");
    QTest::newRow("one past the capacity limits the count")
        << 819597 << 4 << 3 << QByteArray("abc######");
    QTest::newRow("offset at the capacity copies nothing")
        << 819600 << 4 << 0 << QByteArray("#########");
    QTest::newRow("offset past the capacity gives a negative count")
        << 819601 << 5 << -1 << QByteArray("#########");
}

void tst_MemoryBlock::getContent()
{
    QFETCH(int, offset);
    QFETCH(int, len);
    QFETCH(int, result);
    QFETCH(QByteArray, dst);

    CMemoryBlock block;
    block.Append("abcdef");
    QByteArray out(9, '#');
    QCOMPARE(block.GetContent(offset, out.data(), len), result);
    QCOMPARE(out, dst);
}

void tst_MemoryBlock::getContentText_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("text");

    QTest::newRow("empty block clears the text") << QByteArray() << 0 << QString();
    QTest::newRow("bytes become the text") << QByteArray("abc") << 3 << QStringLiteral("abc");
}

void tst_MemoryBlock::getContentText()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, result);
    QFETCH(QString, text);

    CMemoryBlock block;
    block.Append(bytes.constData(), int(bytes.size()));
    CString out("old");
    QCOMPARE(block.GetContent(out), result);
    QCOMPARE(QString(out), text);
}

// The block "abc\0hello\0xyz\0" read as zero-terminated strings; the match's
// offset from the block's start is added to pos, not put in its place.
void tst_MemoryBlock::searchString_data()
{
    QTest::addColumn<QByteArray>("needle");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("hit"); // -1: null
    QTest::addColumn<int>("pos");

    QTest::newRow("a hit in the first string gives the end of the match")
        << QByteArray("bc") << 0 << 1 << 3;
    QTest::newRow("a hit in a later string adds its block offset")
        << QByteArray("llo") << 0 << 6 << 13;
    QTest::newRow("no hit leaves pos past the strings it read")
        << QByteArray("zz") << 0 << -1 << 14;
    QTest::newRow("one byte before the end is searched") << QByteArray("z") << 12 << 12 << 25;
    QTest::newRow("reaching the end returns null, pos untouched")
        << QByteArray("z") << 13 << -1 << 13;
}

void tst_MemoryBlock::searchString()
{
    QFETCH(QByteArray, needle);
    QFETCH(int, from);
    QFETCH(int, hit);
    QFETCH(int, pos);

    CMemoryBlock block;
    block.Append("abc\0hello\0xyz\0", 14);
    int at = from;
    const char* found = block.SearchString(needle.constData(), at);
    QCOMPARE(found, hit < 0 ? nullptr : block.GetData() + hit);
    QCOMPARE(at, pos);
}

void tst_MemoryBlock::dumpToLogfile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("log");

    QTest::newRow("empty block writes the markers only")
        << QByteArray() << QByteArray("\n--begin--\n\n--end--\n");
    QTest::newRow("bytes between the markers")
        << QByteArray("a\0b", 3) << QByteArray("\n--begin--\na\0b\n--end--\n", 23);
}

void tst_MemoryBlock::dumpToLogfile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, log);

    CMemoryBlock block;
    block.Append(bytes.constData(), int(bytes.size()));
    FILE* f = std::tmpfile();
    QVERIFY(f);
    block.dumpToLogfile(f);
    QByteArray written(64, '\0');
    std::rewind(f);
    written.resize(qsizetype(std::fread(written.data(), 1, size_t(written.size()), f)));
    std::fclose(f);
    QCOMPARE(written, log);
    block.dumpToLogfile(nullptr); // no file, nothing done
}

// Each setter on a field of width 5 that held "abcde".
void tst_MemoryBlock::itemValues_data()
{
    QTest::addColumn<QByteArray>("input"); // null: a null pointer
    QTest::addColumn<QByteArray>("plain");
    QTest::addColumn<QByteArray>("left");
    QTest::addColumn<QByteArray>("right");

    QTest::newRow("short value: the rest stays, or is padded")
        << QByteArray("12") << QByteArray("12cde") << QByteArray("00012") << QByteArray("12000");
    QTest::newRow("one short of the width gets one pad")
        << QByteArray("1234") << QByteArray("1234e") << QByteArray("01234") << QByteArray("12340");
    QTest::newRow("exactly the width fills the field")
        << QByteArray("12345") << QByteArray("12345") << QByteArray("12345") << QByteArray("12345");
    QTest::newRow("one past the width keeps the first bytes")
        << QByteArray("123456") << QByteArray("12345") << QByteArray("12345")
        << QByteArray("12345");
    QTest::newRow("empty value pads the whole field")
        << QByteArray("") << QByteArray("abcde") << QByteArray("00000") << QByteArray("00000");
    QTest::newRow("null counts as empty")
        << QByteArray() << QByteArray("abcde") << QByteArray("00000") << QByteArray("00000");
}

void tst_MemoryBlock::itemValues()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, plain);
    QFETCH(QByteArray, left);
    QFETCH(QByteArray, right);

    const char* s = input.isNull() ? nullptr : input.constData();
    List_FixedBarcodeItem list;
    FixedBarcodeItem p(&list, 5, "abcde"), l(&list, 5, "abcde"), r(&list, 5, "abcde");
    QCOMPARE(p.SetValue(s), int(input.size()));
    QCOMPARE(l.SetValueLeftPadding(s, '0'), int(input.size()));
    QCOMPARE(r.SetValueRightPadding(s, '0'), int(input.size()));
    QCOMPARE(QByteArray(p.GetValue()), plain);
    QCOMPARE(QByteArray(l.GetValue()), left);
    QCOMPARE(QByteArray(r.GetValue()), right);
}

// Widths are bytes: text goes in as UTF-8 and may be cut inside a character.
void tst_MemoryBlock::itemValuesAsUtf8_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QByteArray>("plain");
    QTest::addColumn<QByteArray>("left");
    QTest::addColumn<QByteArray>("right");

    QTest::newRow("a two-byte character takes two columns") << QStringLiteral("\u00e9")
                                                            << QByteArray("\xc3\xa9"
                                                                          "cde")
                                                            << QByteArray("000\xc3\xa9")
                                                            << QByteArray("\xc3\xa9"
                                                                          "000");
    QTest::newRow("the width cuts inside a character")
        << QStringLiteral("\u00e9\u00e9\u00e9") << QByteArray("\xc3\xa9\xc3\xa9\xc3")
        << QByteArray("\xc3\xa9\xc3\xa9\xc3") << QByteArray("\xc3\xa9\xc3\xa9\xc3");
}

void tst_MemoryBlock::itemValuesAsUtf8()
{
    QFETCH(QString, input);
    QFETCH(QByteArray, plain);
    QFETCH(QByteArray, left);
    QFETCH(QByteArray, right);

    const CString s(input);
    List_FixedBarcodeItem list;
    FixedBarcodeItem p(&list, 5, "abcde"), l(&list, 5, "abcde"), r(&list, 5, "abcde");
    p.SetValue(s);
    l.SetValueLeftPadding(s, '0');
    r.SetValueRightPadding(s, '0');
    QCOMPARE(QByteArray(p.GetValue()), plain);
    QCOMPARE(QByteArray(l.GetValue()), left);
    QCOMPARE(QByteArray(r.GetValue()), right);
}

void tst_MemoryBlock::itemWidths_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QByteArray>("initial");
    QTest::addColumn<QByteArray>("output");

    QTest::newRow("width 1 is the narrowest field") << 1 << QByteArray("xyz") << QByteArray("x");
    QTest::newRow("width 0 contributes nothing") << 0 << QByteArray("xyz") << QByteArray();
    QTest::newRow("a negative width contributes nothing")
        << -1 << QByteArray("xyz") << QByteArray();
    QTest::newRow("an initial value as long as the width")
        << 3 << QByteArray("abc") << QByteArray("abc");
    QTest::newRow("a short initial value is filled with zero bytes")
        << 4 << QByteArray("de") << QByteArray("de\0\0", 4);
}

void tst_MemoryBlock::itemWidths()
{
    QFETCH(int, width);
    QFETCH(QByteArray, initial);
    QFETCH(QByteArray, output);

    List_FixedBarcodeItem list;
    FixedBarcodeItem item(&list, width, initial.constData());
    CMemoryBlock block;
    QCOMPARE(list.OutputToMemoryBlock(block), int(output.size()));
    QCOMPARE(content(block), output);
    QCOMPARE(item.GetValue() == nullptr, width < 1);
}

void tst_MemoryBlock::itemsInCreationOrder()
{
    auto* list = new List_FixedBarcodeItem;
    FixedBarcodeItem name(list, 3, "abc");
    delete new FixedBarcodeItem(list, 3, "bad"); // removes itself from the list
    FixedBarcodeItem code(list, 2, "de");
    CMemoryBlock block;
    block.Append("<");
    QCOMPARE(list->OutputToMemoryBlock(block), 5);
    QCOMPARE(content(block), QByteArray("<abcde")); // nothing between items, no terminator
    auto* orphan = new FixedBarcodeItem(list, 1, "x");
    delete list;
    delete orphan; // must not reach into the destroyed list
}

QTEST_GUILESS_MAIN(tst_MemoryBlock)
#include "tst_memoryblock.moc"
