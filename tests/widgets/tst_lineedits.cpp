#include "myevent.h"
#include "stringlineedit.h"
#include "widgettests.h"

#include <QRegularExpression>

#include <cmath>
#include <limits>
#include <tuple>

namespace {

// clang-format off
static const QString entryGoldSheet = QStringLiteral("QLineEdit{ border-width: 1px; border-style: solid; border-color: white white black white; } QLineEdit:hover { border: 1px solid #808080; background-color:#DEAC37; border-radius: 2px; } QLineEdit:disabled {background:#C0C0C0;color:black;} QLineEdit:read-only {color:#324aa8;}");
static const QString entryGreenSheet = QStringLiteral("QLineEdit{ border-width: 1px; border-style: solid; border-color: white white black white; } QLineEdit:hover { border: 1px solid #808080; background-color:#3EAC37; border-radius: 2px; } QLineEdit:disabled {background:#C0C0C0;color:black;} QLineEdit:read-only {color:#324aa8;}");
static const QString forwardGoldSheet = QStringLiteral("QLineEdit{ border-width: 1px; border-style: solid; border-color: white white black white; color:#32aaa8; } QLineEdit:hover { border: 1px solid #808080; background-color:#DEAC37; border-radius: 2px; }");
static const QString underlineSheet = QStringLiteral("QLabel { border-width: 1px; border-style: dotted; border-color: white white black white; }");
// clang-format on

// Notes the worksheet requests that reach it, by the id each carries.
struct Page : QWidget {
    using QWidget::QWidget;
    QList<int> ids;
    bool event(QEvent* e) override
    {
        if (e->type() == QEvent::Type(EventNeedWorksheet::Type))
            ids << static_cast<MyEvent*>(e)->m_value;
        return QWidget::event(e);
    }
};

// A window over a page that holds a line edit, then the box.
struct Window : Page {
    Page* page = new Page(this);
    QLineEdit* before = new QLineEdit(page);
    StringLineEdit* box = new StringLineEdit(page);
};

using Act = std::function<void(StringLineEdit*)>;
constexpr int AsBuilt = 99; // decimals left as the box was built

} // namespace

Q_DECLARE_METATYPE(Act)

class tst_LineEdits : public QObject
{
    Q_OBJECT
private slots:
    void properties_data()
    {
        QTest::addColumn<Make>("make");
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("value");
        using S = StringLineEdit;
        const auto door = [](int id) { return made<S>([id](S* e) { e->setAttID(id); }); };
        const QVariant right = QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
        const auto rightClick = [](QString text, Qt::MouseButton button) {
            return made<DoubleLineEdit>([=](DoubleLineEdit* e) {
                e->setText(text);
                QTest::mousePress(e, button);
            });
        };
        // clang-format off
        QTest::newRow("entry box hovers gold") << made<S>() << QByteArray("styleSheet") << QVariant(entryGoldSheet);
        QTest::newRow("forward box: teal text") << made<CForwardEdit>() << QByteArray("styleSheet") << QVariant(forwardGoldSheet);
        QTest::newRow("form door hovers green") << made<S>([](S* e) { e->setForwardFormType(3); }) << QByteArray("styleSheet") << QVariant(entryGreenSheet);
        QTest::newRow("worksheet door hovers green") << made<S>([](S* e) { e->setWorksheetType(4); }) << QByteArray("styleSheet") << QVariant(entryGreenSheet);
        QTest::newRow("forward box made a door loses teal") << made<CForwardEdit>([](CForwardEdit* e) { e->setWorksheetType(4); }) << QByteArray("styleSheet") << QVariant(entryGreenSheet);
        QTest::newRow("underlined label") << made<UnderlineLabel>() << QByteArray("styleSheet") << QVariant(underlineSheet);
        QTest::newRow("entry box: left and right bits") << made<S>() << QByteArray("alignment") << QVariant::fromValue(Qt::Alignment(0x83));
        QTest::newRow("amount box: right") << made<DoubleLineEdit>() << QByteArray("alignment") << right;
        QTest::newRow("amount box: 90 wide at least") << made<DoubleLineEdit>() << QByteArray("minimumWidth") << QVariant(90);
        QTest::newRow("maximum length stored only") << made<S>([](S* e) { e->setMaxLen(3); }) << QByteArray("maxLength") << QVariant(32767);
        QTest::newRow("door id 1: read-only") << door(1) << QByteArray("readOnly") << QVariant(true);
        QTest::newRow("door id 0: read-only all the same") << door(0) << QByteArray("readOnly") << QVariant(true);
        QTest::newRow("door id -1: read-only all the same") << door(-1) << QByteArray("readOnly") << QVariant(true);
        QTest::newRow("door tells how to open it") << door(0) << QByteArray("toolTip") << QVariant("press key or click to launch worksheet");
        QTest::newRow("amount door: read-only") << made<DoubleLineEdit>([](DoubleLineEdit* e) { e->setAttID(2); }) << QByteArray("readOnly") << QVariant(true);
        QTest::newRow("right click takes an amount") << rightClick("5.00", Qt::RightButton) << QByteArray("selectedText") << QVariant("5.00");
        QTest::newRow("right click leaves 0") << rightClick("0", Qt::RightButton) << QByteArray("selectedText") << QVariant("");
        QTest::newRow("right click leaves 0.00") << rightClick("0.00", Qt::RightButton) << QByteArray("selectedText") << QVariant("");
        QTest::newRow("right click, empty box") << rightClick("", Qt::RightButton) << QByteArray("selectedText") << QVariant("");
        QTest::newRow("right click: 0.0 is no zero") << rightClick("0.0", Qt::RightButton) << QByteArray("selectedText") << QVariant("0.0");
        QTest::newRow("right click: 0.000 is no zero") << rightClick("0.000", Qt::RightButton) << QByteArray("selectedText") << QVariant("0.000");
        QTest::newRow("left click takes nothing") << rightClick("5.00", Qt::LeftButton) << QByteArray("selectedText") << QVariant("");
        // clang-format on
    }
    void properties() { compareMadeProperty(); }

    // What a page reads to know where the box leads.
    void forwardKind()
    {
        StringLineEdit form, worksheet;
        form.setForwardFormType(7);
        worksheet.setWorksheetType(8);
        QCOMPARE((QList<int> { form.m_forwardKind, form.m_forwardType, worksheet.m_forwardKind,
                               worksheet.m_forwardType }),
                 (QList<int> { 1, 7, 2, 8 }));
    }

    void amounts_data()
    {
        QTest::addColumn<bool>("in"); // setDouble, else getDouble
        QTest::addColumn<int>("decimals");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        const double inf = std::numeric_limits<double>::infinity(), nan = std::nan("");
        // clang-format off
        QTest::newRow("in: 2 decimals as built") << true << AsBuilt << 12.999 << "13.00";
        QTest::newRow("in: 0 decimals cut, not rounded") << true << 0 << 12.999 << "12";
        QTest::newRow("in: negative cut toward zero") << true << 0 << -12.999 << "-12";
        QTest::newRow("in: -1 decimals cut too") << true << -1 << 12.999 << "12";
        QTest::newRow("in: 1 decimal rounds") << true << 1 << 12.999 << "13.0";
        QTest::newRow("in: no thousands separator") << true << 2 << 1234567.891 << "1234567.89";
        QTest::newRow("in: whole, no separator") << true << 0 << 1234567.891 << "1234567";
        QTest::newRow("in: NaN shows 0") << true << 0 << nan << "0";
        QTest::newRow("in: largest double below 2^63") << true << 0 << 9223372036854774784.0 << "9223372036854774784";
        QTest::newRow("in: 2^63 held at the top") << true << 0 << 9223372036854775808.0 << "9223372036854775807";
        QTest::newRow("in: infinity held at the top") << true << 0 << inf << "9223372036854775807";
        QTest::newRow("in: -2^63, the bottom") << true << 0 << -9223372036854775808.0 << "-9223372036854775808";
        QTest::newRow("in: below -2^63 held at the bottom") << true << 0 << -9223372036854777856.0 << "-9223372036854775808";
        QTest::newRow("in: -infinity held at the bottom") << true << 0 << -inf << "-9223372036854775808";
        QTest::newRow("out: every comma dropped") << false << 2 << 123.0 << "1,2,3";
        QTest::newRow("out: 0 decimals cut") << false << 0 << 1234.0 << "1,234.50";
        QTest::newRow("out: 0 decimals cut toward zero") << false << 0 << -7.0 << "-7.9";
        QTest::newRow("out: 1 decimal not cut") << false << 1 << -7.9 << "-7.9";
        QTest::newRow("out: -1 decimals not cut") << false << -1 << -7.9 << "-7.9";
        QTest::newRow("out: empty") << false << 2 << 0.0 << "";
        QTest::newRow("out: letters") << false << 2 << 0.0 << "12a";
        QTest::newRow("out: spaces are not dropped") << false << 2 << 0.0 << "1 234";
        QTest::newRow("out: inf") << false << 2 << 0.0 << "inf";
        QTest::newRow("out: -inf") << false << 2 << 0.0 << "-inf";
        QTest::newRow("out: nan") << false << 2 << 0.0 << "nan";
        // clang-format on
    }
    void amounts()
    {
        QFETCH(bool, in);
        QFETCH(int, decimals);
        QFETCH(double, value);
        QFETCH(QString, text);
        DoubleLineEdit box;
        if (decimals != AsBuilt)
            box.m_decimals = decimals;
        if (in) {
            box.setDouble(value);
            QCOMPARE(box.text(), text);
        } else {
            box.setText(text);
            QCOMPARE(box.getDouble(), value);
        }
    }

    void door_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<Act>("act");
        QTest::addColumn<int>("requests");
        QTest::addColumn<bool>("keepsFocus");
        QTest::addColumn<int>("cursor"); // -1: not looked at
        const auto click = [](Qt::MouseButton b) {
            return Act([b](StringLineEdit* e) { QTest::mouseClick(e, b); });
        };
        const auto key = [](Qt::Key k, Qt::KeyboardModifiers m = {}) {
            return Act([=](StringLineEdit* e) { QTest::keyClick(e, k, m); });
        };
        const Act launch = [](StringLineEdit* e) { e->postLaunchWS(); };
        // clang-format off
        QTest::newRow("left click opens, cursor stays") << 1 << click(Qt::LeftButton) << 1 << true << 0;
        QTest::newRow("left click, id 0: a plain click") << 0 << click(Qt::LeftButton) << 0 << true << 5;
        QTest::newRow("left click, id -1: a plain click") << -1 << click(Qt::LeftButton) << 0 << true << 5;
        QTest::newRow("right click opens nothing") << 1 << click(Qt::RightButton) << 0 << true << -1;
        QTest::newRow("a letter opens") << 1 << key(Qt::Key_A) << 1 << true << -1;
        QTest::newRow("a letter, id 0") << 0 << key(Qt::Key_A) << 0 << true << -1;
        QTest::newRow("bare Shift opens") << 1 << key(Qt::Key_Shift) << 1 << true << -1;
        QTest::newRow("Tab moves on") << 1 << key(Qt::Key_Tab) << 0 << false << -1;
        QTest::newRow("Backtab opens") << 1 << key(Qt::Key_Backtab) << 1 << true << -1;
        QTest::newRow("Shift+Tab opens once") << 1 << key(Qt::Key_Tab, Qt::ShiftModifier) << 1 << true << -1;
        QTest::newRow("Shift+Backtab opens once") << 1 << key(Qt::Key_Backtab, Qt::ShiftModifier) << 1 << true << -1;
        QTest::newRow("Backtab, id 0, moves back") << 0 << key(Qt::Key_Backtab) << 0 << false << -1;
        QTest::newRow("launch") << 7 << launch << 1 << true << -1;
        QTest::newRow("launch, id 0") << 0 << launch << 0 << true << -1;
        // clang-format on
    }
    // The request goes to the direct parent only, and is posted, not sent.
    void door()
    {
        QFETCH(int, id);
        QFETCH(Act, act);
        QFETCH(int, requests);
        QFETCH(bool, keepsFocus);
        QFETCH(int, cursor);
        Window window;
        StringLineEdit* box = window.box;
        box->setText("12345");
        box->setAttID(id);
        box->setCursorPosition(0);
        showActive(window);
        box->setFocus();
        act(box);
        QCOMPARE(window.page->ids.size(), 0);
        QCoreApplication::processEvents();
        QCOMPARE(window.page->ids, QList<int>(requests, id));
        QCOMPARE(window.ids.size(), 0);
        QCOMPARE(box->hasFocus(), keepsFocus);
        if (cursor >= 0)
            QCOMPARE(box->cursorPosition(), cursor);
    }

    // Without a parent there is nobody to ask, and nothing may be posted.
    void doorWithoutParent()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
        StringLineEdit box;
        box.setAttID(3);
        box.postLaunchWS();
        QTest::mouseClick(&box, Qt::LeftButton);
        QTest::keyClick(&box, Qt::Key_Backtab);
        QCoreApplication::sendPostedEvents();
    }

    // Sent after the base handler: it has selected the text on a Tab focus in,
    // and dropped the selection on focus out, by the time the page hears of it.
    void focussedSignal()
    {
        Window window;
        StringLineEdit* box = window.box;
        box->setText("abc");
        showActive(window);
        window.before->setFocus();
        using Heard = QList<std::tuple<bool, StringLineEdit*, bool>>;
        Heard heard;
        connect(box, &StringLineEdit::focussed, this, [&](bool in, StringLineEdit* e) {
            heard.append({ in, e, box->hasSelectedText() });
        });
        QTest::keyClick(window.before, Qt::Key_Tab);
        QTest::keyClick(box, Qt::Key_Tab);
        QCOMPARE(heard, (Heard { { true, box, true }, { false, box, false } }));
    }
};

QTEST_MAIN(tst_LineEdits)
#include "tst_lineedits.moc"
