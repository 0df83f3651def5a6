#include "stringlineedit.h"

#include "myevent.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <cmath>
#include <limits>

namespace {

const QString s_lineEditSheet = QStringLiteral(
    "QLineEdit{ border-width: 1px; border-style: solid; border-color: white white black "
    "white; } QLineEdit:hover { border: 1px solid #808080; background-color:%1; "
    "border-radius: 2px; } QLineEdit:disabled {background:#C0C0C0;color:black;} "
    "QLineEdit:read-only {color:#324aa8;}");
const QString s_forwardEditSheet = QStringLiteral(
    "QLineEdit{ border-width: 1px; border-style: solid; border-color: white white black "
    "white; color:#32aaa8; } QLineEdit:hover { border: 1px solid #808080; "
    "background-color:%1; border-radius: 2px; }");
const QString s_underlineLabelSheet = QStringLiteral(
    "QLabel { border-width: 1px; border-style: dotted; border-color: white white black "
    "white; }");

const QString s_entryHover = QStringLiteral("#DEAC37");
const QString s_elsewhereHover = QStringLiteral("#3EAC37");

} // namespace

StringLineEdit::StringLineEdit(QWidget* parent)
    : QLineEdit(parent)
    , m_maxLen(0)
    , m_forwardKind(0)
    , m_forwardType(0)
    , m_attId(0)
{
    setStyleSheet(s_lineEditSheet.arg(s_entryHover));
    // Left and right together, as the forms always had it: the style draws it as left.
    setAlignment(Qt::Alignment(0x83));
}

void StringLineEdit::setAttID(int id)
{
    m_attId = id;
    setReadOnly(true);
    setToolTip(tr("press key or click to launch worksheet"));
}

void StringLineEdit::setMaxLen(int len)
{
    m_maxLen = len;
}

void StringLineEdit::setForwardFormType(int type)
{
    m_forwardKind = 1;
    m_forwardType = type;
    setStyleSheet(s_lineEditSheet.arg(s_elsewhereHover));
}

void StringLineEdit::setWorksheetType(int type)
{
    m_forwardKind = 2;
    m_forwardType = type;
    setStyleSheet(s_lineEditSheet.arg(s_elsewhereHover));
}

void StringLineEdit::postLaunchWS()
{
    // The page that opens the worksheet is the direct parent; a box without one
    // has nobody to ask.
    if (m_attId <= 0 || !parent())
        return;
    // One chord is several presses (Shift, then Backtab) that can all arrive
    // before the page sees the first request: a request still waiting is
    // replaced, so the page opens one worksheet, not one per press.
    QCoreApplication::removePostedEvents(parent(), EventNeedWorksheet::Type);
    QCoreApplication::postEvent(parent(), new EventNeedWorksheet(m_attId));
}

bool StringLineEdit::event(QEvent* e)
{
    // QWidget::event spends Shift+Tab on moving the focus before keyPressEvent
    // could see it, yet on a door it must open the worksheet like any key but Tab.
    if (e->type() == QEvent::KeyPress && m_attId > 0) {
        auto* key = static_cast<QKeyEvent*>(e);
        const bool backtab = key->key() == Qt::Key_Backtab
            || (key->key() == Qt::Key_Tab && (key->modifiers() & Qt::ShiftModifier));
        if (backtab) {
            postLaunchWS();
            e->accept();
            return true;
        }
    }
    return QLineEdit::event(e);
}

void StringLineEdit::mousePressEvent(QMouseEvent* e)
{
    if (e->button() == Qt::LeftButton && m_attId > 0) {
        // The base is not called, so the cursor stays where it was.
        postLaunchWS();
        return;
    }
    if (e->button() == Qt::RightButton) {
        const QString t = text();
        if (!t.isEmpty() && t != QLatin1String("0") && t != QLatin1String("0.00"))
            selectAll();
    }
    QLineEdit::mousePressEvent(e);
}

void StringLineEdit::keyPressEvent(QKeyEvent* e)
{
    if (m_attId > 0 && e->key() != Qt::Key_Tab) {
        postLaunchWS();
        return;
    }
    QLineEdit::keyPressEvent(e);
}

void StringLineEdit::focusInEvent(QFocusEvent* e)
{
    QLineEdit::focusInEvent(e);
    Q_EMIT focussed(true, this);
}

void StringLineEdit::focusOutEvent(QFocusEvent* e)
{
    QLineEdit::focusOutEvent(e);
    Q_EMIT focussed(false, this);
}

int DoubleLineEdit::s_defDecimals = 2;

DoubleLineEdit::DoubleLineEdit(QWidget* parent)
    : StringLineEdit(parent)
    , m_decimals(s_defDecimals)
{
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setMinimumWidth(90);
}

void DoubleLineEdit::setAttID(int id)
{
    StringLineEdit::setAttID(id);
}

bool DoubleLineEdit::event(QEvent* e)
{
    return StringLineEdit::event(e);
}

void DoubleLineEdit::setDouble(double value)
{
    if (m_decimals < 1) {
        // Cut toward zero. Values no 64-bit integer holds are held at its ends,
        // and NaN shows 0, rather than leaving the conversion undefined.
        qint64 whole = 0;
        if (value >= 9223372036854775807.0)
            whole = std::numeric_limits<qint64>::max();
        else if (value <= -9223372036854775808.0)
            whole = std::numeric_limits<qint64>::min();
        else if (!std::isnan(value))
            whole = qint64(value);
        setText(QString::number(whole, 10));
        return;
    }
    setText(QStringLiteral("%1").arg(value, 0, 'f', m_decimals, QLatin1Char(' ')));
}

double DoubleLineEdit::getDouble()
{
    QString t = text();
    t.remove(QLatin1Char(','));
    bool ok = false;
    double value = t.toDouble(&ok);
    // "inf" and "nan" read as numbers to toDouble, but are no amount.
    if (!ok || !std::isfinite(value))
        return 0.0;
    if (m_decimals == 0)
        value = std::trunc(value);
    return value;
}

CForwardEdit::CForwardEdit(QWidget* parent)
    : DoubleLineEdit(parent)
{
    setStyleSheet(s_forwardEditSheet.arg(s_entryHover));
}

UnderlineLabel::UnderlineLabel(QWidget* parent)
    : QLabel(parent)
{
    setStyleSheet(s_underlineLabelSheet);
}
