#include "styledcheckbox.h"
#include "styleddateedit.h"
#include "widgetappearance.h"
#include "widgettests.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QWheelEvent>

#include <functional>
#include <memory>
#include <optional>

namespace {

// clang-format off
static const QString dateSheet = QStringLiteral("QDateEdit {     background-color: white;     border-style: solid;     border-width: 1px;     border-color: rgb(100,100,100);     spacing: 5px;  } QCalendarWidget QWidget#qt_calendar_navigationbar {    background-color: rgb(200,200,200); } QCalendarWidget QWidget#qt_calendar_navigationbar QToolButton{    background-color: rgb(51,234,255);     color: black;    border-width: 1;     border-style: solid;     border-color: black; }");
static const QString checkSheet = QStringLiteral("QCheckBox:checked{color:blue}");
static const QString boldCheckSheet = QStringLiteral("QCheckBox::indicator:!checked{border:2px solid black}  QCheckBox:checked{color:blue}");
// clang-format on

using MakeNull = std::function<CustomNullDateEdit*()>;

void setPoints(QWidget* w, int points)
{
    QFont font = w->font();
    font.setPointSize(points);
    w->setFont(font);
}

// "label#name": a label of that object name, at 9 points. A button's text is
// its name, and its size policy says how it was before the walk.
QWidget* make(const QString& step, QWidget* parent)
{
    const QString type = step.section('#', 0, 0), name = step.section('#', 1);
    QWidget* w = type == "label" ? new QLabel("text", parent)
        : type == "group"        ? new QGroupBox(parent)
        : type == "list"         ? new QListWidget(parent)
        : type == "check"        ? new QCheckBox(parent)
        : type == "button"       ? new QPushButton(name, parent)
                                 : new QWidget(parent);
    QSizePolicy before(QSizePolicy::Expanding, QSizePolicy::Preferred, QSizePolicy::CheckBox);
    before.setHeightForWidth(true);
    w->setSizePolicy(before);
    w->setObjectName(name);
    setPoints(w, 9);
    return w;
}

// What the box's line edit shows, whatever the box answers from text().
QString shown(QAbstractSpinBox* box)
{
    return box->findChild<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly)->text();
}

} // namespace

Q_DECLARE_METATYPE(MakeNull)

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
        const auto nullBox
            = [](QDate d) { return Make([d] { return new CustomNullDateEdit(d, nullptr); }); };
        // clang-format off
        QTest::newRow("date: sheet") << made<StyledDateEdit>() << QByteArray("styleSheet") << QVariant(dateSheet);
        QTest::newRow("date: right") << made<StyledDateEdit>() << QByteArray("alignment") << right;
        QTest::newRow("date: English") << made<StyledDateEdit>() << QByteArray("locale") << QVariant(QLocale(QLocale::English, QLocale::AnyScript, QLocale::AnyTerritory));
        QTest::newRow("date: blank text") << made<StyledDateEdit>() << QByteArray("specialValueText") << QVariant("0000/01/01");
        QTest::newRow("date and time: right") << made<StyledDateTimeEdit>() << QByteArray("alignment") << right;
        QTest::newRow("date and time: set") << made<StyledDateTimeEdit>([when](StyledDateTimeEdit* e) { e->setDatetime(when); }) << QByteArray("dateTime") << QVariant(when);
        QTest::newRow("check box: blue when ticked") << made<StyledCheckBox>() << QByteArray("styleSheet") << QVariant(checkSheet);
        QTest::newRow("check box made bold: heavy border") << made<StyledCheckBox>([](StyledCheckBox* e) { e->makeBold(); }) << QByteArray("styleSheet") << QVariant(boldCheckSheet);
        QTest::newRow("check box made bold: same font") << made<StyledCheckBox>([](StyledCheckBox* e) { e->makeBold(); }) << QByteArray("font") << QVariant(QCheckBox().font());
        QTest::newRow("blank-date box pops up, no date") << nullBox(QDate()) << QByteArray("calendarPopup") << QVariant(true);
        QTest::newRow("blank-date box pops up, a date") << nullBox(QDate(2023, 4, 5)) << QByteArray("calendarPopup") << QVariant(true);
        QTest::newRow("blank-date box pops up, default") << Make([] { return new CustomNullDateEdit(nullptr); }) << QByteArray("calendarPopup") << QVariant(true);
        QTest::newRow("blank-date box pops up, a format") << Make([] { return new CustomNullDateEdit("dd.MM.yyyy", nullptr); }) << QByteArray("calendarPopup") << QVariant(true);
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
        QTest::newRow("an ordinary date") << false << QDate(2024, 3, 5) << false;
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

    void wheel_data()
    {
        QTest::addColumn<bool>("withTime");
        QTest::addColumn<int>("delta");
        QTest::newRow("date, up") << false << 120;
        QTest::newRow("date, down") << false << -120;
        QTest::newRow("date and time, up") << true << 120;
        QTest::newRow("date and time, down") << true << -120;
    }
    // Ignored, so it goes on to scroll the page; the value stays.
    void wheel()
    {
        QFETCH(bool, withTime);
        QFETCH(int, delta);
        std::unique_ptr<QDateTimeEdit> box(
            withTime ? static_cast<QDateTimeEdit*>(new StyledDateTimeEdit) : new StyledDateEdit);
        const QDateTime start(QDate(2024, 3, 5), QTime(0, 0));
        box->setDateTime(start);
        QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(box.get(), &event);
        QVERIFY(!event.isAccepted());
        QCOMPARE(box->dateTime(), start);
    }

    void nullDate_data()
    {
        QTest::addColumn<MakeNull>("make");
        QTest::addColumn<QString>("format");
        QTest::addColumn<bool>("hasDate");
        QTest::addColumn<QDate>("held"); // m_date
        QTest::addColumn<QDate>("date");
        const QDate today = QDate::currentDate(), d(2023, 4, 5), e(2024, 2, 9);
        const auto box = [](QDate first, std::optional<QDate> then = {}) {
            return MakeNull([=] {
                auto* b = new CustomNullDateEdit(first, nullptr);
                if (then)
                    b->setDate(*then);
                return b;
            });
        };
        // clang-format off
        QTest::newRow("default: holds 2021, shows the base's date") << MakeNull([] { return new CustomNullDateEdit(nullptr); }) << "yyyy/MM/dd" << true << QDate(2021, 1, 1) << QDate(2000, 1, 1);
        QTest::newRow("a format: today") << MakeNull([] { return new CustomNullDateEdit("dd.MM.yyyy", nullptr); }) << "dd.MM.yyyy" << true << today << today;
        QTest::newRow("invalid date: blank") << box(QDate()) << "yyyy/MM/dd" << false << QDate() << QDate();
        QTest::newRow("a date") << box(d) << "yyyy/MM/dd" << true << d << d;
        QTest::newRow("a date made blank") << box(d, QDate()) << "yyyy/MM/dd" << false << d << QDate();
        QTest::newRow("a blank given a date") << box(QDate(), e) << "yyyy/MM/dd" << true << e << e;
        QTest::newRow("a blank stays blank") << box(QDate(), QDate()) << "yyyy/MM/dd" << false << QDate() << QDate();
        // clang-format on
    }
    void nullDate()
    {
        QFETCH(MakeNull, make);
        QFETCH(QString, format);
        QFETCH(bool, hasDate);
        QFETCH(QDate, held);
        QFETCH(QDate, date);
        std::unique_ptr<CustomNullDateEdit> box(make());
        QCOMPARE(box->displayFormat(), format);
        QCOMPARE(box->hasDate(), hasDate);
        QCOMPARE(box->m_date, held);
        QCOMPARE(box->date(), date);
        const QString text = hasDate ? date.toString(format) : "0000/00/00";
        QCOMPARE(box->text(), text);
        QCOMPARE(shown(box.get()), text);
    }

    void nullDateValidate_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<bool>("acceptable");
        QTest::newRow("the blank text") << "0000/00/00" << true;
        QTest::newRow("one digit off the blank") << "0000/00/01" << false;
        QTest::newRow("a real date") << "2024/02/09" << true;
    }
    void nullDateValidate()
    {
        QFETCH(QString, input);
        QFETCH(bool, acceptable);
        CustomNullDateEdit box(QDate(), nullptr);
        int pos = 0;
        QCOMPARE(box.validate(input, pos) == QValidator::Acceptable, acceptable);
    }

    // Leaving a blank box keeps it blank; the first arrow step starts from today.
    void nullDateKeys()
    {
        QWidget page;
        auto* box = new CustomNullDateEdit(QDate(), &page);
        auto* other = new QLineEdit(&page);
        page.show();
        QApplication::setActiveWindow(&page);
        QVERIFY(QTest::qWaitForWindowActive(&page));
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
        QTest::newRow("label in a group box") << "group>label" << pt << QVariant(14);
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
        QTest::newRow("a tall button still 32 high") << "button#a\nb\nc\nd\ne\nf" << QByteArray("height") << QVariant(32);
        // clang-format on
    }
    void appearance()
    {
        QFETCH(QString, path);
        QFETCH(QByteArray, property);
        QFETCH(QVariant, value);
        QLabel root("root");
        setPoints(&root, 9);
        QWidget* at = &root;
        QWidget* probe = &root;
        for (const QString& step : path.split('>', Qt::SkipEmptyParts)) {
            at = make(QString(step).remove('*'), at);
            if (!path.contains('*') || step.startsWith('*'))
                probe = at;
        }
        genAdjustWidgetAppearanceToOS(&root);
        genAdjustWidgetAppearanceToOS(nullptr);
        root.show();
        QCOMPARE(property == "pointSize" ? QVariant(probe->font().pointSize())
                                         : probe->property(property),
                 value);
    }
};

QTEST_MAIN(tst_DateEdits)
#include "tst_dateedits.moc"
