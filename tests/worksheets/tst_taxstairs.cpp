#include "taxstairs.h"

#include <QTest>

#include <array>

class tst_TaxStairs : public QObject
{
    Q_OBJECT

    // 10% from 0, 20% from 50000, 30% from 100000, with consistent base taxes.
    STRUCT_TAX_STAIRS_JURISDICTION m_table;

private Q_SLOTS:
    void initTestCase()
    {
        for (auto [threshold, rate, base] :
             { std::array { 0.0, 0.10, 0.0 }, std::array { 50000.0, 0.20, 5000.0 },
               std::array { 100000.0, 0.30, 15000.0 } })
            m_table.addLevel(threshold, rate, base);
    }

    void levels_data()
    {
        for (const char* column : { "income", "tax", "threshold", "rate" })
            QTest::addColumn<double>(column);
        QTest::newRow("exactly at a threshold: the lower level")
            << 50000.0 << 5000.0 << 0.0 << 0.10;
        QTest::newRow("a cent above: the upper level, 0.002 rounds away")
            << 50000.01 << 5000.0 << 50000.0 << 0.20;
        QTest::newRow("above every threshold: the last level")
            << 150000.0 << 30000.0 << 100000.0 << 0.30;
        QTest::newRow("negative income: level 0, negative tax") << -1000.0 << -100.0 << 0.0 << 0.10;
        QTest::newRow("every step rounded: 0.045 -> 0.05 -> 0.01") << 0.045 << 0.01 << 0.0 << 0.10;
    }
    void levels()
    {
        QFETCH(double, income);
        QTEST(m_table.CalcAlgoForTax(income), "tax");
        double threshold = -1, rate = -1, base = -1;
        m_table.CalcAlgoForSetFieldsToCalcTax(income, threshold, rate, base);
        QTEST(threshold, "threshold");
        QTEST(rate, "rate");
    }

    void spouse_data()
    {
        for (const char* column : { "income", "result", "tax" })
            QTest::addColumn<double>(column);
        QTest::newRow("at level 1's threshold: income back, no tax") << 50000.0 << 50000.0 << 0.0;
        QTest::newRow("above it by less than 0.009: the same") << 50000.008 << 50000.008 << 0.0;
        QTest::newRow("above: the income taxed alike at the lowest rate")
            << 60000.0 << 70000.0 << 7000.0;
    }
    void spouse()
    {
        QFETCH(double, income);
        double tax = -1;
        QTEST(m_table.CalcAlgoForSpouseF260S2(income, tax), "result");
        QTEST(tax, "tax");
    }

    void smallTables()
    {
        STRUCT_TAX_STAIRS_JURISDICTION t;
        double threshold = 7, rate = 7, base = 7, tax = 7;
        t.CalcAlgoForSetFieldsToCalcTax(100, threshold, rate, base);
        QVERIFY(t.CalcAlgoForTax(100) == 0 && threshold + rate + base == 21); // outputs untouched
        // One level: a plain product, with no threshold, no base tax, no rounding.
        t.addLevel(1000, 0.15, 99);
        QCOMPARE(t.CalcAlgoForTax(0.033), 0.033 * 0.15);
        QCOMPARE(t.CalcAlgoForSpouseF260S2(90000, tax), 90000.0);
        QCOMPARE(tax, 0.0);
        std::list<double> out { -1.0 };
        t.GetIncomeThresholds(out);
        QCOMPARE(out.size(), size_t(1));
        // Level 0's threshold is taken off too; thresholds are appended, level 0 left out.
        t.addLevel(5000, 0.20, 600);
        QCOMPARE(t.CalcAlgoForTax(2000), 249.0);
        t.GetIncomeThresholds(out);
        QCOMPARE(out, (std::list<double> { -1.0, 5000.0 }));
    }

    // The table holds ten levels: an eleventh is refused, not written past the end.
    void capacity()
    {
        STRUCT_TAX_STAIRS_JURISDICTION t;
        for (int i = 0; i < 10; ++i)
            QCOMPARE(t.addLevel(i * 1000.0, 0.01 * (i + 1), i * 10.0), i + 1);
        QCOMPARE(t.addLevel(1e9, 0.99, 0), 10);
        const double top = (2e9 - 9000) * 0.10 + 90;
        QCOMPARE(t.CalcAlgoForTax(2e9), top);
        // A count written from outside is never read beyond the array.
        t.m_nLevels = 1000;
        QVERIFY(t.CalcAlgoForTax(2e9) == top && t.addLevel(1, 1, 1) == 10);
        t.m_nLevels = -3;
        QVERIFY(t.CalcAlgoForTax(100) == 0 && t.addLevel(0, 0.5, 0) == 1);
    }
};

QTEST_GUILESS_MAIN(tst_TaxStairs)
#include "tst_taxstairs.moc"
