#include "catalogue.h"
#include "dependantinfo.h"
#include "jurisdictiontables.h"
#include "styledcombobox.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>

#include <cstring>
#include <functional>
#include <list>

namespace {

// clang-format off
static const QString comboSheet = QStringLiteral("QComboBox {color:black;border: 1px solid #32414B;                                     border-radius:4px;padding: 1px 0px 1px 3px;}                          QComboBox::focus { background-color:#DEAC37;}");
// clang-format on

using Call = std::function<int(CT1ComboBox&)>;
using CodeRows = const STRUCT_CODE_INFO*;
using Load = std::function<void(CT1ComboBox&)>;

QString latin1(const char* text)
{
    return QString::fromLatin1(text);
}

} // namespace

Q_DECLARE_METATYPE(Call)
Q_DECLARE_METATYPE(Load)

class tst_ComboBoxes : public QObject
{
    Q_OBJECT
private slots:
    void basics()
    {
        CT1ComboBox box;
        QCOMPARE(box.styleSheet(), comboSheet);
        QCOMPARE(box.focusPolicy(), Qt::StrongFocus);
        QCOMPARE(box.AddString("ten"), 0);
        QCOMPARE(box.AddString(nullptr), 1);
        QCOMPARE(box.AddString("\xc3\xa9t\xc3\xa9"), 2);
        QCOMPARE(box.itemText(1), QString());
        QCOMPARE(box.itemText(2), QStringLiteral(u"\u00e9t\u00e9"));
        QVERIFY(!box.itemData(0, Qt::UserRole).isValid());
        box.EnableWindow(false);
        QVERIFY(box.isEnabled());
    }

    void selectByData_data()
    {
        QTest::addColumn<Call>("call");
        QTest::addColumn<int>("result"); // SetCurSelData: 1 for true
        QTest::addColumn<int>("current"); // starts at 2
        const auto base = [](int d) {
            return Call([d](CT1ComboBox& b) {
                return int(static_cast<StyledComboBox&>(b).SetCurSelData(d));
            });
        };
        const auto ct1
            = [](int d) { return Call([d](CT1ComboBox& b) { return int(b.SetCurSelData(d)); }); };
        const auto byData = [](int d, int fallback) {
            return Call([=](CT1ComboBox& b) { return ComboBoxSelectByData(&b, d, fallback); });
        };
        // clang-format off
        QTest::newRow("found") << base(10) << 1 << 0;
        QTest::newRow("first of two wins") << base(20) << 1 << 1;
        QTest::newRow("an item added without data holds 0") << base(0) << 1 << 3;
        QTest::newRow("not found selects item 0") << base(99) << 0 << 0;
        QTest::newRow("CT1: first of two wins") << ct1(20) << 1 << 1;
        QTest::newRow("CT1: not found selects item 0") << ct1(99) << 0 << 0;
        QTest::newRow("by data: first of two wins") << byData(20, -1) << 1 << 1;
        QTest::newRow("by data: found, fallback unused") << byData(10, 3) << 0 << 0;
        QTest::newRow("fallback -1 keeps the selection") << byData(99, -1) << -1 << 2;
        QTest::newRow("fallback 0") << byData(99, 0) << 0 << 0;
        QTest::newRow("fallback, last item") << byData(99, 3) << 3 << 3;
        QTest::newRow("fallback past the end clears") << byData(99, 4) << 4 << -1;
        // clang-format on
    }
    void selectByData()
    {
        QFETCH(Call, call);
        QFETCH(int, result);
        QFETCH(int, current);
        CT1ComboBox box;
        for (int d : { 10, 20, 20 })
            box.SetItemData(box.AddString("x"), d);
        box.AddString(nullptr);
        box.SetCurSel(2);
        QCOMPARE(call(box), result);
        QCOMPARE(box.GetCurSel(), current);
        if (current >= 0) {
            QCOMPARE(box.GetCurSelData(), box.GetItemData(current));
            QCOMPARE(static_cast<StyledComboBox&>(box).GetCurSelData(), box.GetItemData(current));
        }
    }

    void loaders_data()
    {
        QTest::addColumn<Load>("load");
        QTest::addColumn<int>("times");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("firstText");
        QTest::addColumn<int>("firstData");
        QTest::addColumn<QString>("lastText");
        QTest::addColumn<int>("lastData");
        const auto codes = [](CodeRows rows, int n) {
            return Load([=](CT1ComboBox& b) { b.loadRelationCode(rows, n); });
        };
        const CodeRows s9 = Global_S9_RELATIONCODE_Info, qc = Global_QC_ANNEXE3_Info;
        const auto& rel = globalRelationships;
        const auto& inf = globalInfirms;
        const auto& pr = Global_Provs_Info;
        const auto& p2 = Global2_Provs_Info;
        const auto& co = Global_Countries_Info;
        const auto& cu = Global_Currency_Info;
        const auto& tp = Global_T106_TPM_CODE_Info;
        const auto forms = [](std::list<unsigned int> list, const char* filter) {
            return Load([=](CT1ComboBox& b) mutable { b.LoadTaxForms(0, list, CString(filter)); });
        };
        const unsigned t1 = ENUM_FORM_T1, s1 = ENUM_FORM_S1, s3 = ENUM_FORM_S3,
                       end = ENUM_FORM_COUNT;
        const QString choose = "Choose a Form Type", t1Title = latin1(Global_Forms_Info[t1].title),
                      s1Title = latin1(Global_Forms_Info[s1].title),
                      s3Title = latin1(Global_Forms_Info[s3].title),
                      lastTitle = latin1(Global_Forms_Info[end - 1].title);
        // clang-format off
        QTest::newRow("relationships") << Load(&CT1ComboBox::LoadRelationships) << 1 << 15 << latin1(rel[0].m_name) << 0 << latin1(rel[14].m_name) << 14;
        QTest::newRow("infirm types") << Load(&CT1ComboBox::LoadInfirmTypes) << 1 << 3 << latin1(inf[0].m_name) << 0 << latin1(inf[2].m_name) << 2;
        QTest::newRow("relation codes") << codes(s9, 5) << 1 << 5 << latin1(s9[0].text) << s9[0].code << latin1(s9[4].text) << s9[4].code;
        QTest::newRow("relation codes, Latin-1 texts") << codes(qc, 13) << 1 << 13 << latin1(qc[0].text) << qc[0].code << latin1(qc[12].text) << qc[12].code;
        QTest::newRow("relation codes, count 1") << codes(s9, 1) << 1 << 1 << latin1(s9[0].text) << s9[0].code << latin1(s9[0].text) << s9[0].code;
        QTest::newRow("relation codes, count 0") << codes(s9, 0) << 1 << 0 << "" << 0 << "" << 0;
        QTest::newRow("relation codes, count -1") << codes(s9, -1) << 1 << 0 << "" << 0 << "" << 0;
        QTest::newRow("relation codes, no rows") << codes(nullptr, 3) << 1 << 0 << "" << 0 << "" << 0;
        QTest::newRow("provinces") << Load(&CT1ComboBox::LoadProvs) << 1 << 14 << latin1(pr[0].name) << 0 << latin1(pr[13].name) << 13;
        QTest::newRow("provinces and outside") << Load(&CT1ComboBox::LoadProvsPlus1) << 1 << 15 << latin1(pr[0].name) << 0 << "Outside Canada" << 14;
        QTest::newRow("non-resident kinds") << Load(&CT1ComboBox::LoadProvForNonResi) << 1 << 4 << latin1(pr[14].name) << 14 << latin1(pr[17].name) << 17;
        QTest::newRow("provinces and states") << Load(&CT1ComboBox::LoadCAUSProvs) << 1 << 77 << latin1(p2[0].name) << p2[0].id << latin1(p2[76].name) << p2[76].id;
        QTest::newRow("countries") << Load(&CT1ComboBox::LoadCountries) << 1 << 118 << latin1(co[0].name) << co[0].id << latin1(co[117].name) << co[117].id;
        QTest::newRow("countries twice") << Load(&CT1ComboBox::LoadCountries) << 2 << 236 << latin1(co[0].name) << co[0].id << latin1(co[117].name) << co[117].id;
        QTest::newRow("currencies") << Load(&CT1ComboBox::LoadCurrency) << 1 << 6 << latin1(cu[0].name) << cu[0].code << latin1(cu[5].name) << cu[5].code;
        QTest::newRow("T106 codes") << Load(&CT1ComboBox::LoadT106TPM) << 1 << 8 << latin1(tp[0].text) << tp[0].code << latin1(tp[7].text) << tp[7].code;
        QTest::newRow("programs") << Load(&CT1ComboBox::LoadSKGraduateRententionProgramType) << 1 << 5 << "Select a program" << 0 << "4-year undergraduate" << 4;
        QTest::newRow("programs twice: data is the index") << Load(&CT1ComboBox::LoadSKGraduateRententionProgramType) << 2 << 10 << "Select a program" << 0 << "4-year undergraduate" << 9;
        QTest::newRow("forms, no filter keeps all") << forms({ s1, t1 }, "") << 1 << 3 << choose << 0 << t1Title << int(t1);
        QTest::newRow("forms twice") << forms({ s1, t1 }, "") << 2 << 6 << choose << 0 << t1Title << int(t1);
        QTest::newRow("forms in list order") << forms({ t1, s3, s1 }, "") << 1 << 4 << choose << 0 << s1Title << int(s1);
        QTest::newRow("forms filtered, case aside") << forms({ t1, s1, s3 }, "schedule") << 1 << 3 << choose << 0 << s3Title << int(s3);
        QTest::newRow("forms filtered inside the title") << forms({ t1, s3, s1 }, "GAINS") << 1 << 2 << choose << 0 << s3Title << int(s3);
        QTest::newRow("forms, filter matches none") << forms({ t1, s1 }, "zzz") << 1 << 1 << choose << 0 << choose << 0;
        QTest::newRow("forms, the last catalogue row") << forms({ end - 1 }, "") << 1 << 2 << choose << 0 << lastTitle << int(end - 1);
        QTest::newRow("forms past the catalogue skipped") << forms({ s1, end }, "") << 1 << 2 << choose << 0 << s1Title << int(s1);
        // clang-format on
    }
    // Loaders append, and select item 0 when done.
    void loaders()
    {
        QFETCH(Load, load);
        QFETCH(int, times);
        QFETCH(int, count);
        QFETCH(QString, firstText);
        QFETCH(int, firstData);
        QFETCH(QString, lastText);
        QFETCH(int, lastData);
        CT1ComboBox box;
        for (int i = 0; i < times; ++i) {
            box.SetCurSel(box.GetCount() - 1);
            load(box);
        }
        QCOMPARE(box.GetCount(), count);
        QCOMPARE(box.GetCurSel(), count ? 0 : -1);
        if (count == 0)
            return;
        QCOMPARE(box.itemText(0), firstText);
        QCOMPARE(box.GetItemData(0), firstData);
        QCOMPARE(box.itemText(count - 1), lastText);
        QCOMPARE(box.GetItemData(count - 1), lastData);
    }

    void dependants_data()
    {
        QTest::addColumn<QStringList>("names"); // one first name a row; "" for a blank row
        QTest::addColumn<QByteArray>("firstItem"); // null: none given
        QTest::addColumn<QString>("firstText");
        QTest::addColumn<QList<int>>("data");
        QTest::addColumn<bool>("enabled");
        const QString none = "No dependant information was entered.",
                      select = "Please select a dependant";
        const QByteArray null;
        // clang-format off
        QTest::newRow("no rows") << QStringList{} << null << none << QList<int>{ 0 } << false;
        QTest::newRow("no rows, first item unused") << QStringList{} << QByteArray("Pick") << none << QList<int>{ 0 } << false;
        QTest::newRow("default first item") << QStringList{ "Ann" } << null << select << QList<int>{ 0, 1 } << true;
        QTest::newRow("first item in UTF-8") << QStringList{ "Ann" } << QByteArray("\xc3\x89lan") << QStringLiteral(u"\u00c9lan") << QList<int>{ 0, 1 } << true;
        QTest::newRow("blank middle row skipped") << QStringList{ "Ann", "", "Cy" } << null << select << QList<int>{ 0, 1, 3 } << true;
        QTest::newRow("blank first row skipped") << QStringList{ "", "Bob" } << null << select << QList<int>{ 0, 2 } << true;
        QTest::newRow("only blank rows") << QStringList{ "", "" } << null << select << QList<int>{ 0 } << true;
        // clang-format on
    }
    // A refill: the box held something else and was disabled.
    void dependants()
    {
        QFETCH(QStringList, names);
        QFETCH(QByteArray, firstItem);
        QFETCH(QString, firstText);
        QFETCH(QList<int>, data);
        QFETCH(bool, enabled);
        DependantInfoStruct list;
        list.AllocData(int(names.size()));
        for (int i = 0; i < names.size(); ++i)
            std::strncpy(list.m_pData[i].m_FirstName, names[i].toLatin1().constData(), 79);
        StyledComboBox box;
        box.AddString("stale");
        box.setEnabled(false);
        list.FillComboBox(&box, firstItem.isNull() ? nullptr : firstItem.constData());
        QCOMPARE(box.isEnabled(), enabled);
        QCOMPARE(box.GetCount(), data.size());
        for (int i = 0; i < data.size(); ++i) {
            CString text;
            QCOMPARE(box.GetItemData(i), data[i]);
            QVERIFY(i == 0 || list.m_pData[data[i] - 1].MakeComboBoxString(text));
            QCOMPARE(box.itemText(i), i ? QString(text) : firstText);
        }
        list.FillComboBox(nullptr, nullptr);
    }

    void wheel_data()
    {
        QTest::addColumn<int>("delta");
        QTest::newRow("up") << 120;
        QTest::newRow("down") << -120;
    }
    // Ignored, so it goes on to scroll the page; the value stays.
    void wheel()
    {
        QFETCH(int, delta);
        CT1ComboBox box;
        box.LoadInfirmTypes();
        box.SetCurSel(1);
        QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&box, &event);
        QVERIFY(!event.isAccepted());
        QCOMPARE(box.GetCurSel(), 1);
    }
};

QTEST_MAIN(tst_ComboBoxes)
#include "tst_comboboxes.moc"
