#include "cpostcodeinfo.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

#include <thread>
#include <vector>

class tst_PostCode : public QObject
{
    Q_OBJECT
private slots:
    void firstLookupsFromManyThreads();
    void lookup_data();
    void lookup();
    void nullCode();
    void isFromProv_data();
    void isFromProv();
    void resourceShape();
};

// Runs first, while the list is not loaded yet: the load must happen once and
// every thread must see the finished text.
void tst_PostCode::firstLookupsFromManyThreads()
{
    std::vector<int> results(8, -1);
    std::vector<std::thread> threads;
    for (size_t i = 0; i < results.size(); ++i)
        threads.emplace_back([&results, i] {
            results[i] = CPostCodeInfo::GetInstance()->ProvFromPostCode("M5V 3L9");
        });
    for (auto& t : threads)
        t.join();
    for (int r : results)
        QCOMPARE(r, int(ENUM_PROV_ON));
}

void tst_PostCode::lookup_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<int>("prov");
    QTest::newRow("three bytes, the shortest code") << QByteArray("K1A") << 9;
    QTest::newRow("two bytes are too short") << QByteArray("K1") << 0;
    QTest::newRow("empty") << QByteArray("") << 0;
    QTest::newRow("only the first three count") << QByteArray("K1A ZZZ") << 9;
    QTest::newRow("space inside the area") << QByteArray("K1 A0B1") << 0;
    QTest::newRow("no case folding") << QByteArray("k1a") << 0;
    QTest::newRow("area not listed") << QByteArray("Z9Z") << 0;
    QTest::newRow("a marker is no area of its own section") << QByteArray("[AB") << 0;
    // Where one section ends and the next begins, the nearest marker before
    // the area decides; NT stands before NS in the text, unlike the table.
    QTest::newRow("first area of the text") << QByteArray("T0A") << 1;
    QTest::newRow("last area of NL") << QByteArray("A8A") << 5;
    QTest::newRow("first area of NT, after NL") << QByteArray("X0E") << 7;
    QTest::newRow("last area of NT") << QByteArray("X1A") << 7;
    QTest::newRow("first area of NS, after NT") << QByteArray("B0C") << 6;
    QTest::newRow("last area of NS") << QByteArray("B9A") << 6;
    QTest::newRow("first area of NU, after NS") << QByteArray("X0A") << 8;
    QTest::newRow("first area of YT, the last section") << QByteArray("Y0A") << 13;
    QTest::newRow("last area of the text") << QByteArray("Y1A") << 13;
    // One real address in each province and territory.
    QTest::newRow("ON Ottawa") << QByteArray("K1A 0B1") << 9;
    QTest::newRow("QC Montreal") << QByteArray("H2X 1Y4") << 11;
    QTest::newRow("BC Vancouver") << QByteArray("V6B 1A1") << 2;
    QTest::newRow("AB Calgary") << QByteArray("T2P 2M5") << 1;
    QTest::newRow("SK Regina") << QByteArray("S4P 3Y2") << 12;
    QTest::newRow("MB Winnipeg") << QByteArray("R3C 4T3") << 3;
    QTest::newRow("NB Moncton") << QByteArray("E1C 4M3") << 4;
    QTest::newRow("NS Halifax") << QByteArray("B3H 4R2") << 6;
    QTest::newRow("PE Charlottetown") << QByteArray("C1A 7N8") << 10;
    QTest::newRow("NL St. John's") << QByteArray("A1C 5M2") << 5;
    QTest::newRow("NT Yellowknife") << QByteArray("X1A 2L9") << 7;
    QTest::newRow("NU Iqaluit") << QByteArray("X0A 0H0") << 8;
    QTest::newRow("YT Whitehorse") << QByteArray("Y1A 2C6") << 13;
    QTest::newRow("QC Quebec City, G") << QByteArray("G1R 4P5") << 11;
    QTest::newRow("QC Gatineau, J") << QByteArray("J8X 3X7") << 11;
    QTest::newRow("ON Toronto, M") << QByteArray("M5V 3L9") << 9;
    QTest::newRow("ON Sudbury, P") << QByteArray("P3E 5P9") << 9;
}

void tst_PostCode::lookup()
{
    QFETCH(QByteArray, code);
    QTEST(int(CPostCodeInfo::GetInstance()->ProvFromPostCode(code.constData())), "prov");
}

void tst_PostCode::nullCode()
{
    QCOMPARE(CPostCodeInfo::GetInstance()->ProvFromPostCode(nullptr), ENUM_PROV_NONE);
}

void tst_PostCode::isFromProv_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<int>("prov");
    QTest::addColumn<bool>("expected");
    QTest::newRow("K1A with Ontario") << QByteArray("K1A") << 9 << true;
    QTest::newRow("K1A with Alberta") << QByteArray("K1A") << 1 << false;
    QTest::newRow("unknown area matches no choice") << QByteArray("Z9Z") << 0 << true;
}

void tst_PostCode::isFromProv()
{
    QFETCH(QByteArray, code);
    QFETCH(int, prov);
    QTEST(
        CPostCodeInfo::GetInstance()->IsPostCodeFromProv(code.constData(), ENUMTYPE_PROVINCE(prov)),
        "expected");
}

// The compiled-in list: CR LF lines, sections in their fixed order, areas of
// letter-digit-letter, none twice, and every area found in its own section.
void tst_PostCode::resourceShape()
{
    QFile file(QStringLiteral(":/misc/res/postcode.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QCOMPARE(bytes.count('\n'), bytes.count("\r\n"));
    QCOMPARE(bytes.count('\r'), bytes.count("\r\n"));
    QVERIFY(bytes.endsWith("\r\n\r\n"));

    const QList<QByteArray> order
        = { "AB", "BC", "MB", "NB", "NL", "NT", "NS", "NU", "ON", "PE", "QC", "SK", "YT" };
    const int provOf[] = { 1, 2, 3, 4, 5, 7, 6, 8, 9, 10, 11, 12, 13 };
    const QRegularExpression area(QStringLiteral("^[A-Z][0-9][A-Z]$"));
    QSet<QByteArray> seen;
    int section = -1;
    int areasInSection = 0;
    bool inSection = false;
    for (const QByteArray& line : bytes.chopped(1).split('\n')) {
        const QByteArray text = line.chopped(1);
        if (!inSection) {
            ++section;
            QVERIFY(section < order.size());
            QCOMPARE(text, "[" + order.at(section) + "]");
            inSection = true;
            areasInSection = 0;
        } else if (text.isEmpty()) {
            QVERIFY2(areasInSection > 0, order.at(section).constData());
            inSection = false;
        } else {
            for (const QByteArray& a : text.split(' ')) {
                QVERIFY2(area.match(QString::fromLatin1(a)).hasMatch(), a.constData());
                QVERIFY2(!seen.contains(a), a.constData());
                seen.insert(a);
                ++areasInSection;
                QCOMPARE(int(CPostCodeInfo::GetInstance()->ProvFromPostCode(a.constData())),
                         provOf[section]);
            }
        }
    }
    QCOMPARE(section, 12);
    QVERIFY(!inSection);
}

QTEST_GUILESS_MAIN(tst_PostCode)
#include "tst_postcode.moc"
