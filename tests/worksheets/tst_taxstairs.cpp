#include "taxstairs.h"

#include <QTest>

using Levels = QList<QList<double>>; // rows of threshold, rate and base tax

namespace {

// 10% from 0, 20% from 50000, 30% from 100000, with consistent base taxes.
const Levels Stairs { { 0, 0.10, 0 }, { 50000, 0.20, 5000 }, { 100000, 0.30, 15000 } };

STRUCT_TAX_STAIRS_JURISDICTION table(const Levels& levels)
{
    STRUCT_TAX_STAIRS_JURISDICTION t;
    for (const QList<double>& level : levels)
        t.addLevel(level[0], level[1], level[2]);
    return t;
}

} // namespace

class tst_TaxStairs : public QObject
{
    Q_OBJECT

private slots:
    void levels_data();
    void levels();
    void tax_data();
    void tax();
    void spouse_data();
    void spouse();
    void thresholds_data();
    void thresholds();
    void capacity();
};

void tst_TaxStairs::levels_data()
{
    QTest::addColumn<Levels>("levels");
    QTest::addColumn<double>("income");
    QTest::addColumn<double>("threshold");
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("baseTax");
    QTest::newRow("no levels: the outputs keep their values")
        << Levels() << 100.0 << -1.0 << -1.0 << -1.0;
    QTest::newRow("one level: its values, whatever the income")
        << Levels { { 1000, 0.15, 99 } } << 0.0 << 1000.0 << 0.15 << 99.0;
    QTest::newRow("negative income: level 0") << Stairs << -1000.0 << 0.0 << 0.10 << 0.0;
    QTest::newRow("a cent below a threshold: the lower level")
        << Stairs << 49999.99 << 0.0 << 0.10 << 0.0;
    QTest::newRow("exactly at a threshold: the lower level")
        << Stairs << 50000.0 << 0.0 << 0.10 << 0.0;
    QTest::newRow("a cent above: the upper level")
        << Stairs << 50000.01 << 50000.0 << 0.20 << 5000.0;
    QTest::newRow("at the last threshold: the level before")
        << Stairs << 100000.0 << 50000.0 << 0.20 << 5000.0;
    QTest::newRow("a cent above the last threshold: the last level")
        << Stairs << 100000.01 << 100000.0 << 0.30 << 15000.0;
    QTest::newRow("far above every threshold: the last level")
        << Stairs << 1e9 << 100000.0 << 0.30 << 15000.0;
}

void tst_TaxStairs::levels()
{
    QFETCH(Levels, levels);
    QFETCH(double, income);
    double threshold = -1, rate = -1, baseTax = -1;
    table(levels).CalcAlgoForSetFieldsToCalcTax(income, threshold, rate, baseTax);
    QTEST(threshold, "threshold");
    QTEST(rate, "rate");
    QTEST(baseTax, "baseTax");
}

void tst_TaxStairs::tax_data()
{
    QTest::addColumn<Levels>("levels");
    QTest::addColumn<double>("income");
    QTest::addColumn<double>("tax");
    QTest::newRow("no levels: no tax") << Levels() << 100.0 << 0.0;
    QTest::newRow("one level: a plain product, no threshold, base tax or rounding")
        << Levels { { 1000, 0.15, 99 } } << 0.033 << 0.00495;
    QTest::newRow("two levels: level 0's threshold is taken off too")
        << Levels { { 1000, 0.15, 99 }, { 5000, 0.20, 600 } } << 2000.0 << 249.0;
    QTest::newRow("negative income with a threshold of 0: negative tax")
        << Stairs << -1000.0 << -100.0;
    QTest::newRow("at a threshold the two levels agree") << Stairs << 50000.0 << 5000.0;
    QTest::newRow("a cent above: 0.002 rounds away") << Stairs << 50000.01 << 5000.0;
    QTest::newRow("the last level") << Stairs << 150000.0 << 30000.0;
    QTest::newRow("every step rounded: 0.045, then 0.005 takes a cent") << Stairs << 0.045 << 0.01;
}

void tst_TaxStairs::tax()
{
    QFETCH(Levels, levels);
    QFETCH(double, income);
    QTEST(table(levels).CalcAlgoForTax(income), "tax");
}

void tst_TaxStairs::spouse_data()
{
    QTest::addColumn<Levels>("levels");
    QTest::addColumn<double>("income");
    QTest::addColumn<double>("result");
    QTest::addColumn<double>("tax");
    QTest::newRow("one level: the income back, no tax")
        << Levels { { 0, 0.10, 0 } } << 90000.0 << 90000.0 << 0.0;
    QTest::newRow("a cent below level 1's threshold: the income back")
        << Stairs << 49999.99 << 49999.99 << 0.0;
    QTest::newRow("at level 1's threshold: the income back") << Stairs << 50000.0 << 50000.0 << 0.0;
    QTest::newRow("above it by less than 0.009: the income back")
        << Stairs << 50000.008 << 50000.008 << 0.0;
    // Level 1 from 0, so that the difference is exactly the income.
    const Levels fromZero { { -1000, 0.10, -100 }, { 0, 0.60, 0 } };
    QTest::newRow("above it by just under 0.009: the income back")
        << fromZero << 0.0089999 << 0.0089999 << 0.0;
    QTest::newRow("above it by exactly 0.009: taxed, 0.0054 takes a cent")
        << fromZero << 0.009 << 0.1 << 0.01;
    QTest::newRow("above: the income taxed alike at the lowest rate")
        << Stairs << 60000.0 << 70000.0 << 7000.0;
}

void tst_TaxStairs::spouse()
{
    QFETCH(Levels, levels);
    QFETCH(double, income);
    double tax = -1;
    QTEST(table(levels).CalcAlgoForSpouseF260S2(income, tax), "result");
    QTEST(tax, "tax");
}

void tst_TaxStairs::thresholds_data()
{
    QTest::addColumn<Levels>("levels");
    QTest::addColumn<QList<double>>("appended");
    QTest::newRow("no levels: none") << Levels() << QList<double>();
    QTest::newRow("one level: none") << Levels { { 1000, 0.1, 0 } } << QList<double>();
    QTest::newRow("three levels: level 0 left out") << Stairs << QList<double> { 50000, 100000 };
}

void tst_TaxStairs::thresholds()
{
    QFETCH(Levels, levels);
    QFETCH(QList<double>, appended);
    std::list<double> out { -1.0 }; // appended to, never cleared
    table(levels).GetIncomeThresholds(out);
    QCOMPARE(out.front(), -1.0);
    out.pop_front();
    QCOMPARE(QList<double>(out.begin(), out.end()), appended);
}

// The table holds ten levels: an eleventh is refused, not written past the end.
void tst_TaxStairs::capacity()
{
    STRUCT_TAX_STAIRS_JURISDICTION t;
    for (int i = 0; i < 9; ++i)
        t.addLevel(i * 1000.0, 0.01 * (i + 1), i * 10.0);
    QCOMPARE(t.addLevel(9000, 0.10, 90), 10);
    QCOMPARE(t.addLevel(1e9, 0.99, 0), 10);
    const double top = (2e9 - 9000) * 0.10 + 90;
    QCOMPARE(t.CalcAlgoForTax(2e9), top);
    // A count written from outside is never read beyond the array.
    t.m_nLevels = 1000;
    QCOMPARE(t.CalcAlgoForTax(2e9), top);
    QCOMPARE(t.addLevel(1, 1, 1), 10);
    t.m_nLevels = -3;
    QCOMPARE(t.CalcAlgoForTax(100), 0.0);
    QCOMPARE(t.addLevel(0, 0.5, 0), 1);
}

QTEST_GUILESS_MAIN(tst_TaxStairs)
#include "tst_taxstairs.moc"
