#include "encodings.h"

#include <QRandomGenerator>
#include <QtTest>

#include <climits>
#include <cstdio>

class tst_Encodings : public QObject
{
    Q_OBJECT
private slots:
    void rfcVectors_data();
    void rfcVectors();
    void randomRoundTrip_data();
    void randomRoundTrip();
    void malformedBase64_data();
    void malformedBase64();
    void encodedLength_data();
    void encodedLength();
    void nullsAndOversize();
    void urlEncodeCases_data();
    void urlEncodeCases();
    void urlDecodeCases_data();
    void urlDecodeCases();
    void urlDecodeMatchesScanf();
};

static const char guard = '\x5a';

// Encodes into a buffer of exactly Base64encode_len bytes plus guard bytes
// that must survive; then decodes the same way.
static void checkRoundTrip(const QByteArray& data, const QByteArray& expected)
{
    const int len = Base64encode_len(data.size());
    QByteArray enc(len + 8, guard);
    QCOMPARE(Base64encode(enc.data(), data.constData(), data.size()), expected.size() + 1);
    QCOMPARE(len, expected.size() + 1);
    QCOMPARE(QByteArray(enc.constData()), expected);
    QCOMPARE(enc.mid(len), QByteArray(8, guard));

    const int dlen = Base64decode_len(expected.constData());
    QVERIFY(dlen >= data.size() + 1);
    QByteArray dec(dlen + 8, guard);
    QCOMPARE(Base64decode(dec.data(), expected.constData()), data.size());
    QCOMPARE(dec.left(data.size()), data);
    QCOMPARE(dec.at(data.size()), '\0');
    QCOMPARE(dec.mid(dlen), QByteArray(8, guard));
}

void tst_Encodings::rfcVectors_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
    QTest::newRow("one byte, two fillers") << QByteArray("f") << QByteArray("Zg==");
    QTest::newRow("two bytes, one filler") << QByteArray("fo") << QByteArray("Zm8=");
    QTest::newRow("three bytes, no filler") << QByteArray("foo") << QByteArray("Zm9v");
    QTest::newRow("second group, one byte") << QByteArray("foob") << QByteArray("Zm9vYg==");
    QTest::newRow("second group, two bytes") << QByteArray("fooba") << QByteArray("Zm9vYmE=");
    QTest::newRow("two full groups") << QByteArray("foobar") << QByteArray("Zm9vYmFy");
}

void tst_Encodings::rfcVectors()
{
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, text);
    checkRoundTrip(data, text);
}

// Random bytes of every length class against Qt's own encoder.
void tst_Encodings::randomRoundTrip_data()
{
    QTest::addColumn<int>("length");
    for (int n : { 1, 2, 3, 4, 5, 6, 7, 254, 255, 256, 4096, 65537 })
        QTest::addRow("%d bytes", n) << n;
}

void tst_Encodings::randomRoundTrip()
{
    QFETCH(int, length);
    QRandomGenerator rng(quint32(length) * 4648);
    QByteArray data(length, Qt::Uninitialized);
    for (char& c : data)
        c = char(rng.bounded(256));
    checkRoundTrip(data, data.toBase64());
}

void tst_Encodings::malformedBase64_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("filler ends the text") << QByteArray("Zm9v=Zm9v") << QByteArray("foo");
    QTest::newRow("blank ends the text") << QByteArray("Zm9v YmFy") << QByteArray("foo");
    QTest::newRow("url-safe alphabet is foreign") << QByteArray("Zm-9") << QByteArray("f");
    QTest::newRow("high byte ends the text") << QByteArray("Zm9\xffv") << QByteArray("fo");
    QTest::newRow("unpadded tail of two") << QByteArray("Zm9vYg") << QByteArray("foob");
    QTest::newRow("lone last character gives nothing") << QByteArray("Zm9vY") << QByteArray("foo");
    QTest::newRow("filler only") << QByteArray("====") << QByteArray("");
}

void tst_Encodings::malformedBase64()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, data);
    const int dlen = Base64decode_len(text.constData());
    QVERIFY(dlen >= data.size() + 1);
    QByteArray dec(dlen + 8, guard);
    QCOMPARE(Base64decode(dec.data(), text.constData()), data.size());
    QCOMPARE(QByteArray(dec.constData()), data);
    QCOMPARE(dec.mid(dlen), QByteArray(8, guard));
}

// ((size + 2) / 3) * 4 + 1, or 0 when that does not fit in an int.
void tst_Encodings::encodedLength_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("length");
    QTest::newRow("empty input needs the closing zero") << 0 << 1;
    QTest::newRow("one byte takes a whole group") << 1 << 5;
    QTest::newRow("three bytes fill one group") << 3 << 5;
    QTest::newRow("a fourth byte starts a second group") << 4 << 9;
    QTest::newRow("negative counts as empty") << -7 << 1;
    QTest::newRow("largest size that fits") << 1610612733 << 2147483645;
    QTest::newRow("one more would overflow an int") << 1610612734 << 0;
    QTest::newRow("INT_MAX overflows") << INT_MAX << 0;
}

void tst_Encodings::encodedLength()
{
    QFETCH(int, size);
    QFETCH(int, length);
    QCOMPARE(Base64encode_len(size), length);
}

void tst_Encodings::nullsAndOversize()
{
    char out[8] = "xxxxxxx";
    QCOMPARE(Base64encode(out, "abc", INT_MAX), 0); // refuses instead of overrunning
    QCOMPARE(out[0], 'x');
    QCOMPARE(Base64encode(nullptr, "abc", 3), 0);
    QCOMPARE(Base64encode(out, nullptr, 3), 1);
    QCOMPARE(out[0], '\0');
    QCOMPARE(Base64decode_len(nullptr), 1);
    out[0] = 'x';
    QCOMPARE(Base64decode(out, nullptr), 0);
    QCOMPARE(out[0], '\0');
    QCOMPARE(Base64decode(nullptr, "Zm9v"), 0);
}

void tst_Encodings::urlEncodeCases_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("encoded");
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
    QTest::newRow("unreserved marks pass") << QByteArray("-._~") << QByteArray("-._~");
    QTest::newRow("ends of the letter and digit ranges pass")
        << QByteArray("AZaz09") << QByteArray("AZaz09");
    QTest::newRow("one below A is escaped") << QByteArray("@") << QByteArray("%40");
    QTest::newRow("one past Z is escaped") << QByteArray("[") << QByteArray("%5B");
    QTest::newRow("one below a is escaped") << QByteArray("`") << QByteArray("%60");
    QTest::newRow("one past z is escaped") << QByteArray("{") << QByteArray("%7B");
    QTest::newRow("one below 0 is escaped") << QByteArray("/") << QByteArray("%2F");
    QTest::newRow("one past 9 is escaped") << QByteArray(":") << QByteArray("%3A");
    QTest::newRow("blank is %20, never +") << QByteArray("a b") << QByteArray("a%20b");
    QTest::newRow("plus is escaped") << QByteArray("+") << QByteArray("%2B");
    QTest::newRow("lowest byte gets %0") << QByteArray("\x01") << QByteArray("%01");
    QTest::newRow("line feed gets %0") << QByteArray("\n") << QByteArray("%0A");
    QTest::newRow("largest byte below 16 gets %0") << QByteArray("\x0f") << QByteArray("%0F");
    QTest::newRow("16 has two digits of its own") << QByteArray("\x10") << QByteArray("%10");
    QTest::newRow("form separators") << QByteArray("k=v&x") << QByteArray("k%3Dv%26x");
    QTest::newRow("largest positive byte") << QByteArray("\x7f") << QByteArray("%7F");
    QTest::newRow("0x80 printed as a negative int")
        << QByteArray("\x80") << QByteArray("%0FFFFFF80");
    QTest::newRow("high byte printed as a negative int")
        << QByteArray("\xe9") << QByteArray("%0FFFFFFE9");
    QTest::newRow("stops at zero byte") << QByteArray("ab\0cd", 5) << QByteArray("ab");
}

void tst_Encodings::urlEncodeCases()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, encoded);
    QCOMPARE(QByteArray::fromStdString(urlEncode(text.toStdString())), encoded);
}

void tst_Encodings::urlDecodeCases_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("decoded");
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
    QTest::newRow("plus is a blank") << QByteArray("a+b") << QByteArray("a b");
    QTest::newRow("escapes") << QByteArray("%20%0A%2b%6a") << QByteArray(" \n+j");
    QTest::newRow("escaped zero byte kept") << QByteArray("a%00b") << QByteArray("a\0b", 3);
    // The two characters after "%" are read as "%x" reads them.
    QTest::newRow("reading stops at a non-hex character")
        << QByteArray("%4gz") << QByteArray("\x04z");
    QTest::newRow("leading blank skipped") << QByteArray("% 9") << QByteArray("\x09");
    QTest::newRow("minus sign wraps to a byte") << QByteArray("%-1x") << QByteArray("\xffx");
    QTest::newRow("one digit left at the end") << QByteArray("%4") << QByteArray("\x04");
    // No digit at all has no value of its own: "?" stands in, and the two
    // characters are still taken.
    QTest::newRow("percent at end") << QByteArray("100%") << QByteArray("100?");
    QTest::newRow("non-hex pair") << QByteArray("%zz.") << QByteArray("?.");
    QTest::newRow("percent takes the next percent") << QByteArray("%%41") << QByteArray("?1");
}

// Every pair of bytes after a "%" against the C library's own "%x" reading.
void tst_Encodings::urlDecodeMatchesScanf()
{
    for (int a = 0; a < 256; ++a) {
        for (int b = 0; b < 256; ++b) {
            const char pair[3] = { char(a), char(b), 0 };
            unsigned int value = 0;
            const char expected = std::sscanf(pair, "%x", &value) == 1 ? char(value) : '?';
            const std::string decoded = urlDecode(std::string("%") + pair[0] + pair[1]);
            if (decoded != std::string(1, expected))
                QFAIL(qPrintable(QStringLiteral("bytes %1 %2").arg(a).arg(b)));
        }
    }
}

void tst_Encodings::urlDecodeCases()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, decoded);
    QCOMPARE(QByteArray::fromStdString(urlDecode(text.toStdString())), decoded);
}

QTEST_GUILESS_MAIN(tst_Encodings)
#include "tst_encodings.moc"
