#include "encodings.h"

#include <QRandomGenerator>
#include <QtTest>

using B = QByteArray;
static const char Guard = '\x5a';
enum class Codec { Base64, Base64Decode, Url, UrlEncode, UrlDecode };
Q_DECLARE_METATYPE(Codec)

class tst_Encodings : public QObject
{
    Q_OBJECT
private slots:
    // Base64 buffers are sized by the _len functions, with guard bytes behind.
    void codecs_data()
    {
        QTest::addColumn<Codec>("codec");
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<QByteArray>("text");
        B random(65536, Qt::Uninitialized);
        QRandomGenerator(4648).fillRange(reinterpret_cast<quint32*>(random.data()), 16384);
        const Codec B64 = Codec::Base64, B64Dec = Codec::Base64Decode, Url = Codec::Url;
        const Codec UrlEnc = Codec::UrlEncode, UrlDec = Codec::UrlDecode;
        QTest::newRow("one byte, two fillers") << B64 << B("f") << B("Zg==");
        QTest::newRow("two bytes, one filler") << B64 << B("fo") << B("Zm8=");
        QTest::newRow("three bytes, no filler") << B64 << B("foo") << B("Zm9v");
        QTest::newRow("random, against Qt") << B64 << random << random.toBase64();
        QTest::newRow("filler ends the text") << B64Dec << B("foo") << B("Zm9v=Zm9v");
        QTest::newRow("high byte ends the text") << B64Dec << B("fo") << B("Zm9\xffv");
        QTest::newRow("unpadded tail of two") << B64Dec << B("foob") << B("Zm9vYg");
        QTest::newRow("lone last character is dropped") << B64Dec << B("foo") << B("Zm9vY");
        QTest::newRow("url: ends of the ranges") << Url << B("AZaz09-._~") << B("AZaz09-._~");
        QTest::newRow("url: one outside each range")
            << Url << B("@[`{/:") << B("%40%5B%60%7B%2F%3A");
        QTest::newRow("url: blank is %20, plus escaped") << Url << B("a b+") << B("a%20b%2B");
        QTest::newRow("url: below 16 gets %0") << Url << B("\x0f\x10") << B("%0F%10");
        QTest::newRow("url: 0x80 up as a negative int")
            << UrlEnc << B("\x7f\x80") << B("%7F%0FFFFFF80");
        QTest::newRow("url: stops at a zero byte") << UrlEnc << B("ab\0cd", 5) << B("ab");
        QTest::newRow("url: plus, lower-case hex") << UrlDec << B("a b+j") << B("a+b%2b%6a");
        QTest::newRow("url: escaped zero byte kept") << UrlDec << B("a\0b", 3) << B("a%00b");
        // After "%", two characters read as "%x" scanning reads them.
        QTest::newRow("url: stops at a non-hex character") << UrlDec << B("\x04z") << B("%4gz");
        QTest::newRow("url: one digit at the end") << UrlDec << B("\x04") << B("%4");
        // No digit at all gives "?", and the two characters are still taken.
        QTest::newRow("url: percent at end") << UrlDec << B("100?") << B("100%");
    }
    void codecs()
    {
        QFETCH(Codec, codec);
        QFETCH(QByteArray, data);
        QFETCH(QByteArray, text);
        if (codec == Codec::Url || codec == Codec::UrlEncode)
            QCOMPARE(QByteArray::fromStdString(urlEncode(data.toStdString())), text);
        if (codec == Codec::Url || codec == Codec::UrlDecode)
            QCOMPARE(QByteArray::fromStdString(urlDecode(text.toStdString())), data);
        if (codec == Codec::Base64) {
            const int len = Base64encode_len(int(data.size()));
            QByteArray enc(len + 8, Guard);
            QCOMPARE(Base64encode(enc.data(), data.constData(), int(data.size())), len);
            QCOMPARE(enc, text + '\0' + QByteArray(8, Guard));
        }
        if (codec == Codec::Base64 || codec == Codec::Base64Decode) {
            const int len = Base64decode_len(text.constData());
            QVERIFY(len >= data.size() + 1);
            QByteArray dec(len + 8, Guard);
            QCOMPARE(Base64decode(dec.data(), text.constData()), data.size());
            QCOMPARE(dec.left(data.size() + 1) + dec.mid(len), data + '\0' + B(8, Guard));
        }
    }

    // Sizes and pointers no table row can carry; null input is empty input.
    void limitsAndNulls()
    {
        QCOMPARE(Base64encode_len(1610612733), 2147483645); // the largest that fits an int
        QCOMPARE(Base64encode_len(1610612734), 0);
        char out[8] = "xxxxxxx";
        QCOMPARE(Base64encode(out, "abc", 0x7fffffff), 0); // refuses instead of overrunning
        QCOMPARE(out[0], 'x');
        QCOMPARE(Base64encode(nullptr, "abc", 3), 0);
        QCOMPARE(Base64encode(out, nullptr, 3), 1);
        QCOMPARE(Base64decode_len(nullptr), 1);
        QCOMPARE(Base64decode(out + 1, nullptr), 0);
        QCOMPARE(B(out, 2), B("\0\0", 2));
        QCOMPARE(Base64decode(nullptr, "Zm9v"), 0);
    }
};

QTEST_GUILESS_MAIN(tst_Encodings)
#include "tst_encodings.moc"
