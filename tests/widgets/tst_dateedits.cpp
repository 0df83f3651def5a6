#include "styledcheckbox.h"
#include "styleddateedit.h"
#include "wheeltests.h"
#include "widgetappearance.h"
#include "widgettests.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <memory>
#include <optional>

namespace {

// clang-format off
static const QString dateSheet = QStringLiteral("QDateEdit {     background-color: white;     border-style: solid;     border-width: 1px;     border-color: rgb(100,100,100);     spacing: 5px;  } QCalendarWidget QWidget#qt_calendar_navigationbar {    background-color: rgb(200,200,200); } QCalendarWidget QWidget#qt_calendar_navigationbar QToolButton{    background-color: rgb(51,234,255);     color: black;    border-width: 1;     border-style: solid;     border-color: black; }");
static const QString checkSheet = QStringLiteral("QCheckBox:checked{color:blue}");
static const QString boldCheckSheet = QStringLiteral("QCheckBox::indicator:!checked{border:2px solid black}  QCheckBox:checked{color:blue}");
// clang-format on

// What the box's line edit shows, whatever the box answers from text().
QString shown(QAbstractSpinBox* box)
{
    return box->findChild<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly)->text();
}

} // namespace

class tst_DateEdits : public QObject
{
    Q_OBJECT
private slots:
    void properties_data()
    {
        QTest::addColumn<Make>("make");
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("value");
        const QVariant right = QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
        const QDateTime when(QDate(2024, 3, 5), QTime(10, 30));
        // clang-format off
        QTest::newRow("date: sheet") << made<StyledDateEdit>() << QByteArray("styleSheet") << QVariant(dateSheet);
        QTest::newRow("date: right") << made<StyledDateEdit>() << QByteArray("alignment") << right;
        QTest::newRow("date: English") << made<StyledDateEdit>() << QByteArray("locale") << QVariant(QLocale(QLocale::English, QLocale::AnyScript, QLocale::AnyTerritory));
        QTest::newRow("date and time: right") << made<StyledDateTimeEdit>() << QByteArray("alignment") << right;
        QTest::newRow("date and time: set") << made<StyledDateTimeEdit>([when](StyledDateTimeEdit* e) { e->setDatetime(when); }) << QByteArray("dateTime") << QVariant(when);
        QTest::newRow("check box: blue when ticked") << made<StyledCheckBox>() << QByteArray("styleSheet") << QVariant(checkSheet);
        QTest::newRow("check box made bold: heavy border") << made<StyledCheckBox>([](StyledCheckBox* e) { e->makeBold(); }) << QByteArray("styleSheet") << QVariant(boldCheckSheet);
        QTest::newRow("check box made bold: same font") << made<StyledCheckBox>([](StyledCheckBox* e) { e->makeBold(); }) << QByteArray("font") << QVariant(QCheckBox().font());
        // clang-format on
    }
    void properties() { compareMadeProperty(); }

    void blankDate_data()
    {
        QTest::addColumn<bool>("clear"); // else setDate
        QTest::addColumn<QDate>("date");
        QTest::addColumn<bool>("blank");
        const QDate min = StyledDateEdit().minimumDate();
        QTest::newRow("invalid date") << false << QDate() << true;
        QTest::newRow("the minimum") << false << min << true;
        QTest::newRow("the day after the minimum") << false << min.addDays(1) << false;
        QTest::newRow("before the minimum: held at it") << false << min.addDays(-1) << true;
        QTest::newRow("clear") << true << QDate() << true;
    }
    void blankDate()
    {
        QFETCH(bool, clear);
        QFETCH(QDate, date);
        QFETCH(bool, blank);
        StyledDateEdit box;
        box.setDate(QDate(2020, 6, 7));
        clear ? box.clear() : box.setDate(date);
        QCOMPARE(box.nullDate(), blank ? QDate() : date);
        QCOMPARE(box.text() == "0000/01/01", blank);
    }

    void wheel()
    {
        StyledDateEdit date;
        checkWheelIgnored(&date, "dateTime");
        StyledDateTimeEdit dateTime;
        checkWheelIgnored(&dateTime, "dateTime");
    }

    void nullDate_data()
    {
        QTest::addColumn<Make>("make");
        QTest::addColumn<QString>("format");
        QTest::addColumn<bool>("hasDate");
        QTest::addColumn<QDate>("held"); // m_date
        QTest::addColumn<QDate>("date");
        const QDate today = QDate::currentDate(), d(2023, 4, 5), e(2024, 2, 9);
        const auto box = [](QDate first, std::optional<QDate> then = {}) {
            return Make([=] {
                auto* b = new CustomNullDateEdit(first, nullptr);
                if (then)
                    b->setDate(*then);
                return b;
            });
        };
        // clang-format off
        QTest::newRow("default: holds 2021, shows the base's date") << made<CustomNullDateEdit>() << "yyyy/MM/dd" << true << QDate(2021, 1, 1) << QDate(2000, 1, 1);
        QTest::newRow("a format: today") << Make([] { return new CustomNullDateEdit("dd.MM.yyyy", nullptr); }) << "dd.MM.yyyy" << true << today << today;
        QTest::newRow("invalid date: blank") << box(QDate()) << "yyyy/MM/dd" << false << QDate() << QDate();
        QTest::newRow("a date") << box(d) << "yyyy/MM/dd" << true << d << d;
        QTest::newRow("a date made blank") << box(d, QDate()) << "yyyy/MM/dd" << false << d << QDate();
        QTest::newRow("a blank given a date") << box(QDate(), e) << "yyyy/MM/dd" << true << e << e;
        // clang-format on
    }
    void nullDate()
    {
        QFETCH(Make, make);
        QFETCH(QString, format);
        QFETCH(bool, hasDate);
        QFETCH(QDate, held);
        QFETCH(QDate, date);
        std::unique_ptr<CustomNullDateEdit> box(static_cast<CustomNullDateEdit*>(make()));
        QVERIFY(box->calendarPopup());
        QCOMPARE(box->displayFormat(), format);
        QCOMPARE(box->hasDate(), hasDate);
        QCOMPARE(box->m_date, held);
        QCOMPARE(box->date(), date);
        const QString text = hasDate ? date.toString(format) : "0000/00/00";
        QCOMPARE(box->text(), text);
        QCOMPARE(shown(box.get()), text);
    }

    // A blank box: its text passes the check though it is no date, leaving the box
    // keeps it blank, and the first arrow step starts from today.
    void nullDateInput()
    {
        QWidget page;
        auto* box = new CustomNullDateEdit(QDate(), &page);
        auto* other = new QLineEdit(&page);
        int pos = 0;
        QString blank = "0000/00/00", offByOne = "0000/00/01", date = "2024/02/09";
        QCOMPARE(box->validate(blank, pos), QValidator::Acceptable);
        QVERIFY(box->validate(offByOne, pos) != QValidator::Acceptable);
        QCOMPARE(box->validate(date, pos), QValidator::Acceptable);
        showActive(page);
        box->setFocus();
        other->setFocus();
        QCOMPARE(box->text(), QStringLiteral("0000/00/00"));
        QCOMPARE(shown(box), QStringLiteral("0000/00/00"));
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Up);
        QVERIFY(box->hasDate());
        QVERIFY(qAbs(box->date().daysTo(QDate::currentDate())) <= 366);
        QCOMPARE(box->text(), box->date().toString("yyyy/MM/dd"));
        QCOMPARE(CustomNullDateEdit("dd.MM.yyyy", nullptr).formatDateString(QDate(2024, 2, 9)),
                 QStringLiteral("2024/02/09"));
    }

    void appearance_data()
    {
        QTest::addColumn<QString>("path"); // built below a label; the probe is starred, or last
        QTest::addColumn<QByteArray>("property"); // "pointSize" reads the font's
        QTest::addColumn<QVariant>("value");
        const QByteArray pt = "pointSize";
        // clang-format off
        QTest::newRow("label") << "label" << pt << QVariant(14);
        QTest::newRow("aboutTitleLabel") << "label#aboutTitleLabel" << pt << QVariant(9);
        QTest::newRow("aboutVersionLabel") << "label#aboutVersionLabel" << pt << QVariant(9);
        QTest::newRow("aboutCopyrightLabel") << "label#aboutCopyrightLabel" << pt << QVariant(9);
        QTest::newRow("aboutUrlLabel") << "label#aboutUrlLabel" << pt << QVariant(9);
        QTest::newRow("aboutLicenseLabel") << "label#aboutLicenseLabel" << pt << QVariant(9);
        QTest::newRow("names are case-sensitive") << "label#abouturllabel" << pt << QVariant(14);
        QTest::newRow("two levels down") << "widget>group>label" << pt << QVariant(14);
        QTest::newRow("all below a name left alone") << "widget#aboutUrlLabel>label" << pt << QVariant(9);
        QTest::newRow("label with a child stays") << "*label>check" << pt << QVariant(9);
        QTest::newRow("a label's child label") << "label>label" << pt << QVariant(14);
        QTest::newRow("list widget") << "list" << pt << QVariant(14);
        QTest::newRow("nothing inside a list widget") << "list>label" << pt << QVariant(9);
        QTest::newRow("other leaves stay") << "check" << pt << QVariant(9);
        QTest::newRow("the root stays") << "" << pt << QVariant(9);
        QTest::newRow("button: 32 high at least") << "button" << QByteArray("minimumHeight") << QVariant(32);
        QTest::newRow("button: 32 high at most") << "button" << QByteArray("maximumHeight") << QVariant(32);
        QTest::newRow("button: fixed width, old width policy as height's") << "group>button" << QByteArray("sizePolicy") << QVariant(QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding));
        QTest::newRow("button with a child stays") << "*button>check" << QByteArray("maximumHeight") << QVariant(QWIDGETSIZE_MAX);
        // clang-format on
    }
    void appearance()
    {
        QFETCH(QString, path);
        QFETCH(QByteArray, property);
        QFETCH(QVariant, value);
        QLabel root("root");
        QFont nine = root.font();
        nine.setPointSize(9);
        root.setFont(nine);
        QWidget* at = &root;
        QWidget* probe = &root;
        // "label#name": a label of that object name, at 9 points. A button's text
        // is its name, and its size policy says how it was before the walk.
        for (const QString& step : path.split('>', Qt::SkipEmptyParts)) {
            const QString type = step.section('#', 0, 0).remove('*'), name = step.section('#', 1);
            at = type == "label"   ? new QLabel("text", at)
                : type == "group"  ? new QGroupBox(at)
                : type == "list"   ? new QListWidget(at)
                : type == "check"  ? new QCheckBox(at)
                : type == "button" ? new QPushButton(name, at)
                                   : new QWidget(at);
            QSizePolicy before(QSizePolicy::Expanding, QSizePolicy::Preferred,
                               QSizePolicy::CheckBox);
            before.setHeightForWidth(true);
            at->setSizePolicy(before);
            at->setObjectName(name);
            at->setFont(nine);
            if (!path.contains('*') || step.startsWith('*'))
                probe = at;
        }
        genAdjustWidgetAppearanceToOS(&root);
        genAdjustWidgetAppearanceToOS(nullptr);
        QCOMPARE(property == "pointSize" ? QVariant(probe->font().pointSize())
                                         : probe->property(property),
                 value);
    }
};

QTEST_MAIN(tst_DateEdits)
#include "tst_dateedits.moc"
