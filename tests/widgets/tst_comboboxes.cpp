#include "catalogue.h"
#include "dependantinfo.h"
#include "jurisdictiontables.h"
#include "styledcombobox.h"
#include "wheeltests.h"
#include "widgettests.h"

#include <cstring>
#include <list>

namespace {

// clang-format off
static const QString comboSheet = QStringLiteral("QComboBox {color:black;border: 1px solid #32414B;                                     border-radius:4px;padding: 1px 0px 1px 3px;}                          QComboBox::focus { background-color:#DEAC37;}");
// clang-format on

using Call = std::function<int(CT1ComboBox&)>;
using Load = std::function<void(CT1ComboBox&)>;

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
        box.SetCurSel(1);
        checkWheelIgnored(&box, "currentIndex");
    }

    void selectByData_data()
    {
        QTest::addColumn<Call>("call");
        QTest::addColumn<int>("result"); // SetCurSelData: 1 for true
        QTest::addColumn<int>("current"); // starts at 2
        using S = StyledComboBox;
        const auto base = [](int d) {
            return Call([d](CT1ComboBox& b) { return int(b.S::SetCurSelData(d)); });
        };
        const auto ct1
            = [](int d) { return Call([d](CT1ComboBox& b) { return int(b.SetCurSelData(d)); }); };
        const auto byData = [](int d, int fallback) {
            return Call([=](CT1ComboBox& b) { return ComboBoxSelectByData(&b, d, fallback); });
        };
        // clang-format off
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
        QCOMPARE(box.GetCurSelData(), box.GetItemData(current));
        QCOMPARE(box.StyledComboBox::GetCurSelData(), box.GetItemData(current));
    }

    // Loaders append, and select item 0 when done.
    void loaders_data()
    {
        QTest::addColumn<Load>("load");
        QTest::addColumn<int>("count");
        QTest::addColumn<QVariantList>("ends"); // text and data of the first item, then the last
        const auto codes = [](const STRUCT_CODE_INFO* rows, int n) {
            return Load([=](CT1ComboBox& b) { b.loadRelationCode(rows, n); });
        };
        const auto forms = [](std::list<unsigned int> list, const char* filter) {
            return Load([=](CT1ComboBox& b) mutable { b.LoadTaxForms(0, list, CString(filter)); });
        };
        const auto twice = [](Load load) {
            return Load([=](CT1ComboBox& b) {
                load(b);
                b.SetCurSel(b.GetCount() - 1);
                load(b);
            });
        };
        const auto latin1 = [](const char* text) { return QString::fromLatin1(text); };
        const auto title = [=](unsigned form) { return latin1(Global_Forms_Info[form].title); };
        const auto *s9 = Global_S9_RELATIONCODE_Info, *qc = Global_QC_ANNEXE3_Info,
                   *tp = Global_T106_TPM_CODE_Info;
        const unsigned t1 = ENUM_FORM_T1, s1 = ENUM_FORM_S1, s3 = ENUM_FORM_S3,
                       end = ENUM_FORM_COUNT;
        const QString choose = "Choose a Form Type", program = "Select a program";
        using V = QVariantList;
        // clang-format off
        QTest::newRow("relationships") << Load(&CT1ComboBox::LoadRelationships) << 15 << V{ latin1(globalRelationships[0].m_name), 0, latin1(globalRelationships[14].m_name), 14 };
        QTest::newRow("infirm types") << Load(&CT1ComboBox::LoadInfirmTypes) << 3 << V{ latin1(globalInfirms[0].m_name), 0, latin1(globalInfirms[2].m_name), 2 };
        QTest::newRow("relation codes, Latin-1 texts") << codes(qc, 13) << 13 << V{ latin1(qc[0].text), qc[0].code, latin1(qc[12].text), qc[12].code };
        QTest::newRow("relation codes, count 1") << codes(s9, 1) << 1 << V{ latin1(s9[0].text), s9[0].code, latin1(s9[0].text), s9[0].code };
        QTest::newRow("relation codes, count 0") << codes(s9, 0) << 0 << V{};
        QTest::newRow("relation codes, count -1") << codes(s9, -1) << 0 << V{};
        QTest::newRow("relation codes, no rows") << codes(nullptr, 3) << 0 << V{};
        QTest::newRow("provinces") << Load(&CT1ComboBox::LoadProvs) << 14 << V{ latin1(Global_Provs_Info[0].name), 0, latin1(Global_Provs_Info[13].name), 13 };
        QTest::newRow("provinces and outside") << Load(&CT1ComboBox::LoadProvsPlus1) << 15 << V{ latin1(Global_Provs_Info[0].name), 0, "Outside Canada", 14 };
        QTest::newRow("non-resident kinds") << Load(&CT1ComboBox::LoadProvForNonResi) << 4 << V{ latin1(Global_Provs_Info[14].name), 14, latin1(Global_Provs_Info[17].name), 17 };
        QTest::newRow("provinces and states") << Load(&CT1ComboBox::LoadCAUSProvs) << 77 << V{ latin1(Global2_Provs_Info[0].name), Global2_Provs_Info[0].id, latin1(Global2_Provs_Info[76].name), Global2_Provs_Info[76].id };
        QTest::newRow("countries") << Load(&CT1ComboBox::LoadCountries) << 118 << V{ latin1(Global_Countries_Info[0].name), Global_Countries_Info[0].id, latin1(Global_Countries_Info[117].name), Global_Countries_Info[117].id };
        QTest::newRow("currencies") << Load(&CT1ComboBox::LoadCurrency) << 6 << V{ latin1(Global_Currency_Info[0].name), Global_Currency_Info[0].code, latin1(Global_Currency_Info[5].name), Global_Currency_Info[5].code };
        QTest::newRow("T106 codes") << Load(&CT1ComboBox::LoadT106TPM) << 8 << V{ latin1(tp[0].text), tp[0].code, latin1(tp[7].text), tp[7].code };
        QTest::newRow("programs") << Load(&CT1ComboBox::LoadSKGraduateRententionProgramType) << 5 << V{ program, 0, "4-year undergraduate", 4 };
        QTest::newRow("programs twice: data is the index") << twice(Load(&CT1ComboBox::LoadSKGraduateRententionProgramType)) << 10 << V{ program, 0, "4-year undergraduate", 9 };
        QTest::newRow("forms twice") << twice(forms({ s1, t1 }, "")) << 6 << V{ choose, 0, title(t1), int(t1) };
        QTest::newRow("forms in list order") << forms({ t1, s3, s1 }, "") << 4 << V{ choose, 0, title(s1), int(s1) };
        QTest::newRow("forms filtered, case aside") << forms({ t1, s1, s3 }, "schedule") << 3 << V{ choose, 0, title(s3), int(s3) };
        QTest::newRow("forms filtered inside the title") << forms({ t1, s3, s1 }, "GAINS") << 2 << V{ choose, 0, title(s3), int(s3) };
        QTest::newRow("forms, filter matches none") << forms({ t1, s1 }, "zzz") << 1 << V{ choose, 0, choose, 0 };
        QTest::newRow("forms, the last catalogue row") << forms({ end - 1 }, "") << 2 << V{ choose, 0, title(end - 1), int(end - 1) };
        QTest::newRow("forms past the catalogue skipped") << forms({ s1, end }, "") << 2 << V{ choose, 0, title(s1), int(s1) };
        // clang-format on
    }
    void loaders()
    {
        QFETCH(Load, load);
        QFETCH(int, count);
        QFETCH(QVariantList, ends);
        CT1ComboBox box;
        load(box);
        QCOMPARE(box.GetCount(), count);
        QCOMPARE(box.GetCurSel(), count ? 0 : -1);
        if (count)
            QCOMPARE((QVariantList { box.itemText(0), box.GetItemData(0), box.itemText(count - 1),
                                     box.GetItemData(count - 1) }),
                     ends);
    }

    // A refill: the box held something else and was disabled.
    void dependants_data()
    {
        QTest::addColumn<QStringList>("names"); // one first name a row; "" for a blank row
        QTest::addColumn<QByteArray>("firstItem"); // null: none given
        QTest::addColumn<QString>("firstText");
        QTest::addColumn<QList<int>>("data");
        const QString select = "Please select a dependant";
        // clang-format off
        QTest::newRow("no rows, first item unused") << QStringList{} << QByteArray("Pick") << "No dependant information was entered." << QList<int>{ 0 };
        QTest::newRow("first item in UTF-8") << QStringList{ "Ann" } << QByteArray("\xc3\x89lan") << QStringLiteral(u"\u00c9lan") << QList<int>{ 0, 1 };
        QTest::newRow("default first item, blank row skipped") << QStringList{ "Ann", "", "Cy" } << QByteArray() << select << QList<int>{ 0, 1, 3 };
        QTest::newRow("only blank rows") << QStringList{ "", "" } << QByteArray() << select << QList<int>{ 0 };
        // clang-format on
    }
    void dependants()
    {
        QFETCH(QStringList, names);
        QFETCH(QByteArray, firstItem);
        QFETCH(QString, firstText);
        QFETCH(QList<int>, data);
        DependantInfoStruct list;
        list.AllocData(int(names.size()));
        for (int i = 0; i < names.size(); ++i)
            std::strncpy(list.m_pData[i].m_FirstName, names[i].toLatin1().constData(), 79);
        StyledComboBox box;
        box.AddString("stale");
        box.setEnabled(false);
        list.FillComboBox(&box, firstItem.isNull() ? nullptr : firstItem.constData());
        QCOMPARE(box.isEnabled(), !names.isEmpty());
        QCOMPARE(box.GetCount(), data.size());
        for (int i = 0; i < data.size(); ++i) {
            CString text;
            QCOMPARE(box.GetItemData(i), data[i]);
            QVERIFY(i == 0 || list.m_pData[data[i] - 1].MakeComboBoxString(text));
            QCOMPARE(box.itemText(i), i ? QString(text) : firstText);
        }
        list.FillComboBox(nullptr, nullptr);
    }
};

QTEST_MAIN(tst_ComboBoxes)
#include "tst_comboboxes.moc"
