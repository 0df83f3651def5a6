#include "cmemoryblock.h"
#include "fixedbarcodeitem.h"
#include "sequentialsource.h"
#include "streambytes.h"

#include <QtTest>

#include <malloc.h>

using B = QByteArray;
using Write = void (CMemoryBlock::*)(MyDataStream&);
Q_DECLARE_METATYPE(Write)

namespace {

constexpr int Step = CMemoryBlock::BlockSize;
// Bytes unlike their neighbours, so a copy from the wrong place shows.
const auto pattern = [](int n) { return B("0123456789abcdefg").repeated(n / 17 + 1).left(n); };
const auto content = [](const CMemoryBlock& b) { return B(b.GetData(), b.GetContentSize()); };
const auto record = [](qint32 n, const B& b) {
    return B(1, char(n)) + char(n >> 8) + char(n >> 16) + char(n >> 24) + b;
};

} // namespace

class tst_MemoryBlock : public QObject
{
    Q_OBJECT

private slots:
    // Growth past capacity + 1 in whole steps, also from the block's own bytes in
    // the array the growth frees; Init keeps the capacity.
    void growth_data()
    {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("second");
        QTest::addColumn<bool>("own");
        QTest::addColumn<int>("capacity");
        QTest::newRow("the spare byte beyond capacity") << Step + 1 << 0 << false << Step;
        QTest::newRow("two past capacity grows one step") << Step + 2 << 0 << false << 2 * Step;
        QTest::newRow("one more grows two at once") << 2 * Step + 1 << 0 << false << 3 * Step;
        QTest::newRow("grows from its own capacity") << Step + 2 << Step << false << 3 * Step;
        QTest::newRow("appends its own freed bytes") << Step << Step - 100 << true << 2 * Step;
    }
    void growth()
    {
        QFETCH(int, first);
        QFETCH(int, second);
        QFETCH(bool, own);
        mallopt(M_PERTURB, 0xa5); // freed memory is scribbled, so reading the old array shows
        const B bytes = pattern(first + second);
        CMemoryBlock block;
        block.Append(bytes.constData(), first);
        block.Append(own ? block.GetData() : bytes.constData() + first, second);
        QVERIFY(content(block)
                == bytes.left(first) + (own ? bytes : bytes.mid(first)).left(second));
        block.Init();
        QCOMPARE(block.GetContentSize(), 0);
        QTEST(block.GetCapacity(), "capacity");
    }

    // The T1 length counts the four digits that repeat it; a longer one keeps four.
    void writes_data()
    {
        QTest::addColumn<Write>("write");
        QTest::addColumn<B>("bytes");
        QTest::addColumn<B>("written");
        const Write t1 = &CMemoryBlock::WriteToT1BarcodeArchive;
        const B zeros("a\0b", 3), p9995 = pattern(9995), p9996 = pattern(9996);
        const B p12341 = pattern(12341);
        QTest::newRow("T1: empty") << t1 << B() << record(4, "0004");
        QTest::newRow("T1: widest four digits") << t1 << p9995 << record(9999, "9999" + p9995);
        QTest::newRow("T1: five digits keep four") << t1 << p9996 << record(10000, "1000" + p9996);
        QTest::newRow("T1: cut, not rounded") << t1 << p12341 << record(12345, "1234" + p12341);
        QTest::newRow("return") << &CMemoryBlock::WriteToReturnArchive << zeros << record(3, zeros);
    }
    void writes()
    {
        QFETCH(Write, write);
        QFETCH(B, bytes);
        CMemoryBlock block;
        block.Append(bytes.constData(), int(bytes.size()));
        QTEST(storeBytes([&](MyDataStream& s) { (block.*write)(s); }), "written");
    }

    // A load replaces the content and takes what is there, never a size on trust:
    // from a pipe, which hides what is left, it grows one read at a time.
    void reads_data()
    {
        QTest::addColumn<bool>("pipe");
        QTest::addColumn<B>("bytes");
        QTest::addColumn<B>("loaded");
        QTest::addColumn<int>("capacity"); // at most
        QTest::addColumn<bool>("complete");
        const B full = pattern(Step + 1), big = pattern(1536 * 1024);
        const B huge = record(0x7fffffff, "abc"), cut = record(4, "abc");
        QTest::newRow("size 0: nothing") << false << record(0, "x") << B() << Step << true;
        QTest::newRow("size 1: one byte") << false << record(1, "xy") << B("x") << Step << true;
        QTest::newRow("capacity fits")
            << false << record(Step, full.left(Step)) << full.left(Step) << Step << true;
        QTest::newRow("one past: exactly n")
            << false << record(Step + 1, full) << full << Step + 1 << true;
        QTest::newRow("pipe: many reads")
            << true << record(big.size(), big) << big << 2 * Step << true;
        QTest::newRow("file: size beyond the end") << false << huge << B("abc") << Step << false;
        QTest::newRow("pipe: size beyond the end") << true << huge << B("abc") << 2 * Step << false;
        QTest::newRow("file: short") << false << cut << B("abc") << Step << false;
        QTest::newRow("pipe: short") << true << cut << B("abc") << Step << false;
    }
    void reads()
    {
        QFETCH(bool, pipe);
        QFETCH(B, bytes);
        QFETCH(B, loaded);
        QFETCH(int, capacity);
        QFETCH(bool, complete);
        SequentialSource pipeDevice(bytes);
        QBuffer fileDevice(&bytes);
        fileDevice.open(QIODevice::ReadOnly);
        MyDataStream in(pipe ? static_cast<QIODevice*>(&pipeDevice) : &fileDevice);
        CMemoryBlock block;
        block.Append("stale");
        QCOMPARE(block.ReadFromReturnArchive(in), int(loaded.size()));
        QVERIFY(content(block) == loaded);
        QVERIFY(block.GetCapacity() <= capacity);
        QCOMPARE(in.status(), complete ? QDataStream::Ok : QDataStream::ReadPastEnd);
    }

    // Each setter on a width-5 field that held "abcde"; widths are UTF-8 bytes.
    void itemValues_data()
    {
        QTest::addColumn<B>("input"); // null: a null pointer
        QTest::addColumn<bool>("text"); // the CString setters
        QTest::addColumn<B>("values"); // as set, padded left, padded right
        const B cut("\xc3\xa9\xc3\xa9\xc3");
        QTest::newRow("short: the rest stays, or padding")
            << B("12") << false << B("12cde|00012|12000");
        QTest::newRow("exactly the width") << B("12345") << false << B("12345|12345|12345");
        QTest::newRow("one past the width") << B("123456") << false << B("12345|12345|12345");
        QTest::newRow("null is empty") << B() << false << B("abcde|00000|00000");
        QTest::newRow("text cut in a character")
            << cut + "\xa9" << true << cut + '|' + cut + '|' + cut;
    }
    void itemValues()
    {
        QFETCH(B, input);
        QFETCH(bool, text);
        const char* s = input.isNull() ? nullptr : input.constData();
        const CString t(QString::fromUtf8(input));
        List_FixedBarcodeItem list;
        FixedBarcodeItem p(&list, 5, "abcde"), l(&list, 5, "abcde"), r(&list, 5, "abcde");
        text ? p.SetValue(t) : p.SetValue(s);
        text ? l.SetValueLeftPadding(t, '0') : l.SetValueLeftPadding(s, '0');
        text ? r.SetValueRightPadding(t, '0') : r.SetValueRightPadding(s, '0');
        QTEST(B(p.GetValue()) + '|' + l.GetValue() + '|' + r.GetValue(), "values");
    }

    // Items go out in creation order, each exactly its width, nothing between.
    void itemOutput()
    {
        auto* list = new List_FixedBarcodeItem;
        FixedBarcodeItem name(list, 3, "abc");
        delete new FixedBarcodeItem(list, 3, "bad"); // removes itself from the list
        FixedBarcodeItem narrowest(list, 1, "xyz"), none(list, 0, "xyz"), filled(list, 4, "de");
        QCOMPARE(none.GetValue(), nullptr); // a width below 1 holds nothing
        CMemoryBlock block;
        block.Append("<");
        QCOMPARE(list->OutputToMemoryBlock(block), 8);
        QCOMPARE(content(block), B("<abcxde\0\0", 9)); // a short initial value is zero-filled
        auto* orphan = new FixedBarcodeItem(list, 1, "x");
        delete list;
        delete orphan; // must not reach into the destroyed list
    }
};

QTEST_GUILESS_MAIN(tst_MemoryBlock)
#include "tst_memoryblock.moc"
