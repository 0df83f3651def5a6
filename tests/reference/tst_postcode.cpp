#include "cpostcodeinfo.h"

#include <QFile>
#include <QSet>
#include <QtTest>

#include <thread>
#include <vector>

class tst_PostCode : public QObject
{
    Q_OBJECT
private slots:
    // Runs first, while the list is not loaded: every thread must see it loaded once.
    void firstLookupsFromManyThreads()
    {
        std::vector<int> results(8, -1);
        std::vector<std::thread> threads;
        for (size_t i = 0; i < results.size(); ++i)
            threads.emplace_back([&results, i] {
                results[i] = CPostCodeInfo::GetInstance()->ProvFromPostCode("M5V 3L9");
            });
        for (auto& t : threads)
            t.join();
        QCOMPARE(results, std::vector<int>(8, ENUM_PROV_ON));
    }

    void lookup_data()
    {
        QTest::addColumn<QByteArray>("code");
        QTest::addColumn<int>("prov");
        QTest::newRow("three bytes, the shortest code") << QByteArray("K1A") << 9;
        QTest::newRow("two bytes are too short") << QByteArray("K1") << 0;
        QTest::newRow("no case folding") << QByteArray("k1a") << 0;
        QTest::newRow("area not listed") << QByteArray("Z9Z") << 0;
    }
    // A code is from a province when it is found there; one found nowhere is from none.
    void lookup()
    {
        QFETCH(QByteArray, code);
        QFETCH(int, prov);
        CPostCodeInfo* info = CPostCodeInfo::GetInstance();
        QCOMPARE(int(info->ProvFromPostCode(code.constData())), prov);
        QVERIFY(info->IsPostCodeFromProv(code.constData(), ENUMTYPE_PROVINCE(prov)));
        QVERIFY(!info->IsPostCodeFromProv(code.constData(), ENUMTYPE_PROVINCE(prov == 1 ? 2 : 1)));
        QCOMPARE(info->ProvFromPostCode(nullptr), ENUM_PROV_NONE);
    }

    // Every area of the compiled-in list is found in its own section; none stands twice.
    void everyAreaInItsSection()
    {
        QFile file(QStringLiteral(":/misc/res/postcode.txt"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QList<QByteArray> sections = file.readAll().split('[').mid(1);
        // AB BC MB NB NL NT NS NU ON PE QC SK YT: NT stands before NS.
        const int provOf[] = { 1, 2, 3, 4, 5, 7, 6, 8, 9, 10, 11, 12, 13 };
        QCOMPARE(sections.size(), 13);
        QSet<QByteArray> seen;
        for (int s = 0; s < sections.size(); ++s) {
            const QList<QByteArray> words = sections[s].simplified().split(' ');
            for (const QByteArray& area : words.mid(1)) {
                QVERIFY2(area.size() == 3 && !seen.contains(area), area.constData());
                seen.insert(area);
                QCOMPARE(int(CPostCodeInfo::GetInstance()->ProvFromPostCode(area.constData())),
                         provOf[s]);
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_PostCode)
#include "tst_postcode.moc"
