#include "styleddateedit.h"

#include <QLineEdit>
#include <QLocale>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace {

const QString s_dateEditSheet = QStringLiteral(
    "QDateEdit {     background-color: white;     border-style: solid;     border-width: "
    "1px;     border-color: rgb(100,100,100);     spacing: 5px;  } QCalendarWidget "
    "QWidget#qt_calendar_navigationbar {    background-color: rgb(200,200,200); } "
    "QCalendarWidget QWidget#qt_calendar_navigationbar QToolButton{    background-color: "
    "rgb(51,234,255);     color: black;    border-width: 1;     border-style: solid;     "
    "border-color: black; }");

const QString s_nullDateText = QStringLiteral("0000/00/00");
const QString s_nullDateFormat = QStringLiteral("yyyy/MM/dd");

} // namespace

StyledDateEdit::StyledDateEdit(QWidget* parent)
    : QDateEdit(parent)
{
    setLocale(QLocale(QLocale::English, QLocale::AnyScript, QLocale::AnyTerritory));
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setSpecialValueText(QStringLiteral("0000/01/01"));
    setStyleSheet(s_dateEditSheet);
}

void StyledDateEdit::clear()
{
    QDateEdit::setDate(minimumDate());
}

void StyledDateEdit::setDate(QDate const& date)
{
    QDateEdit::setDate(date.isValid() ? date : minimumDate());
}

QDate StyledDateEdit::nullDate() const
{
    const QDate d = date();
    return d == minimumDate() ? QDate() : d;
}

void StyledDateEdit::mousePressEvent(QMouseEvent* e)
{
    QDateEdit::mousePressEvent(e);
}

void StyledDateEdit::mouseReleaseEvent(QMouseEvent* e)
{
    QDateEdit::mouseReleaseEvent(e);
}

void StyledDateEdit::wheelEvent(QWheelEvent* e)
{
    e->ignore();
}

void StyledDateEdit::focusInEvent(QFocusEvent* e)
{
    QDateEdit::focusInEvent(e);
}

StyledDateTimeEdit::StyledDateTimeEdit(QWidget* parent)
    : QDateTimeEdit(parent)
{
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void StyledDateTimeEdit::clear()
{
    QDateTimeEdit::clear();
}

QDate StyledDateTimeEdit::nullDate() const
{
    return QDate();
}

void StyledDateTimeEdit::setDatetime(QDateTime const& dateTime)
{
    setDateTime(dateTime);
}

void StyledDateTimeEdit::wheelEvent(QWheelEvent* e)
{
    e->ignore();
}

void StyledDateTimeEdit::focusInEvent(QFocusEvent* e)
{
    QDateTimeEdit::focusInEvent(e);
}

CustomNullDateEdit::CustomNullDateEdit(QWidget* parent)
    : QDateEdit(parent)
    , m_hasDate(true)
    , m_date(2021, 1, 1)
{
    setCalendarPopup(true);
    setDisplayFormat(s_nullDateFormat);
    trackUserDates();
}

CustomNullDateEdit::CustomNullDateEdit(QDate const& date, QWidget* parent)
    : QDateEdit(parent)
    , m_hasDate(date.isValid())
    , m_date(date)
{
    setCalendarPopup(true);
    setDisplayFormat(s_nullDateFormat);
    if (m_hasDate)
        QDateEdit::setDate(date);
    updateDisplay();
    trackUserDates();
}

CustomNullDateEdit::CustomNullDateEdit(QString const& format, QWidget* parent)
    : QDateEdit(parent)
    , m_hasDate(true)
    , m_date(QDate::currentDate())
{
    setCalendarPopup(true);
    setDisplayFormat(format);
    QDateEdit::setDate(m_date);
    trackUserDates();
}

// A date the user gives through the base (calendar, typing) must count as a
// date; the base does not go through setDate, so its change signal tells us.
void CustomNullDateEdit::trackUserDates()
{
    connect(this, &QDateTimeEdit::dateChanged, this, [this] {
        m_hasDate = true;
        m_date = QDateEdit::date();
    });
}

QDate CustomNullDateEdit::date() const
{
    return m_hasDate ? QDateEdit::date() : QDate();
}

void CustomNullDateEdit::setDate(QDate const& date)
{
    m_hasDate = date.isValid();
    if (m_hasDate) {
        m_date = date;
        QDateEdit::setDate(date);
    }
    updateDisplay();
}

bool CustomNullDateEdit::hasDate() const
{
    return m_hasDate;
}

QString CustomNullDateEdit::text() const
{
    return m_hasDate ? QDateEdit::text() : s_nullDateText;
}

void CustomNullDateEdit::updateDisplay()
{
    if (!m_hasDate && lineEdit()->text() != s_nullDateText) {
        // Unheard by the base: it would read the text back, find no date in it and
        // draw its own date over it (and move its stored date on the way).
        const QSignalBlocker quiet(lineEdit());
        lineEdit()->setText(s_nullDateText);
    }
}

QString CustomNullDateEdit::formatDateString(QDate const& date)
{
    return date.toString(s_nullDateFormat);
}

void CustomNullDateEdit::stepBy(int steps)
{
    if (!m_hasDate)
        setDate(QDate::currentDate());
    QDateEdit::stepBy(steps);
}

QValidator::State CustomNullDateEdit::validate(QString& input, int& pos) const
{
    if (input == s_nullDateText)
        return QValidator::Acceptable;
    return QDateEdit::validate(input, pos);
}

// Showing the box, and leaving it, make the base redraw its own date; a blank
// box must keep showing that it is blank.
void CustomNullDateEdit::showEvent(QShowEvent* e)
{
    QDateEdit::showEvent(e);
    updateDisplay();
}

void CustomNullDateEdit::focusOutEvent(QFocusEvent* e)
{
    QDateEdit::focusOutEvent(e);
    updateDisplay();
}
