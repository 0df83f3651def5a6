#include "taxstairs.h"

#include <QTest>

using Levels = QList<QList<double>>; // rows of threshold, rate and base tax
using Stairs = STRUCT_TAX_STAIRS_JURISDICTION;
// A call on a table and an income, giving its outputs as text.
using Fn = QString (*)(const Stairs& table, double income);
Q_DECLARE_METATYPE(Fn)

class tst_TaxStairs : public QObject
{
    Q_OBJECT

private slots:
    void calls_data()
    {
        QTest::addColumn<Levels>("levels");
        QTest::addColumn<Fn>("fn");
        QTest::addColumn<double>("income");
        QTest::addColumn<QString>("expected");
        // Threshold, rate and base tax of the level found; -1 where nothing is written.
        const Fn level = [](const Stairs& t, double income) {
            double threshold = -1, rate = -1, baseTax = -1;
            t.CalcAlgoForSetFieldsToCalcTax(income, threshold, rate, baseTax);
            return QString("%1 %2 %3").arg(threshold).arg(rate).arg(baseTax);
        };
        const Fn tax = [](auto& t, double in) { return QString::number(t.CalcAlgoForTax(in)); };
        // The result, then the tax.
        const Fn spouse = [](const Stairs& t, double income) {
            double tax = -1;
            const double result = t.CalcAlgoForSpouseF260S2(income, tax);
            return QString::number(result, 'g', 12) + ' ' + QString::number(tax);
        };
        // 10% from 0, 20% from 50000, 30% from 100000, with consistent base taxes.
        const Levels three { { 0, 0.10, 0 }, { 50000, 0.20, 5000 }, { 100000, 0.30, 15000 } };
        const Levels one { { 1000, 0.15, 99 } };
        // Level 1 from 0, so that the amount above it is exactly the income.
        const Levels fromZero { { -1000, 0.10, -100 }, { 0, 0.60, 0 } };
        QTest::newRow("no levels: nothing written") << Levels() << level << 100. << "-1 -1 -1";
        QTest::newRow("at a threshold: the lower") << three << level << 50000. << "0 0.1 0";
        QTest::newRow("a cent above: the upper") << three << level << 50000.01 << "50000 0.2 5000";
        QTest::newRow("above the last: the last") << three << level << 1e9 << "100000 0.3 15000";
        QTest::newRow("one level: a plain product") << one << tax << 0.033 << "0.00495";
        QTest::newRow("level 0's threshold is taken off")
            << Levels { { 1000, 0.15, 99 }, { 5000, 0.20, 600 } } << tax << 2000. << "249";
        QTest::newRow("each step rounded to cents") << three << tax << 0.045 << "0.01";
        QTest::newRow("one level: the income back") << one << spouse << 90000. << "90000 0";
        QTest::newRow("under 0.009 above level 1")
            << fromZero << spouse << 0.0089999 << "0.0089999 0";
        QTest::newRow("0.009 above level 1: taxed") << fromZero << spouse << 0.009 << "0.1 0.01";
        QTest::newRow("taxed at the lowest rate") << three << spouse << 60000. << "70000 7000";
    }
    void calls()
    {
        QFETCH(Levels, levels);
        QFETCH(Fn, fn);
        QFETCH(double, income);
        Stairs table;
        for (const QList<double>& level : levels)
            table.addLevel(level[0], level[1], level[2]);
        QTEST(fn(table, income), "expected");
    }

    // Ten levels fit: an eleventh is refused, and a count written from outside is
    // never read beyond the array.
    void capacity()
    {
        Stairs t;
        for (int i = 0; i < 9; ++i)
            t.addLevel(i * 1000.0, 0.01 * (i + 1), i * 10.0);
        QCOMPARE(t.addLevel(9000, 0.10, 90), 10);
        QCOMPARE(t.addLevel(1e9, 0.99, 0), 10);
        const double top = (2e9 - 9000) * 0.10 + 90;
        QCOMPARE(t.CalcAlgoForTax(2e9), top);
        t.m_nLevels = 1000;
        QCOMPARE(t.CalcAlgoForTax(2e9), top);
        t.m_nLevels = -3;
        QCOMPARE(t.CalcAlgoForTax(100), 0.0);
        QCOMPARE(t.addLevel(0, 0.5, 0), 1);
    }
};

QTEST_GUILESS_MAIN(tst_TaxStairs)
#include "tst_taxstairs.moc"
