#include "actiononevent.h"

#include "stringlineedit.h"
#include "styleddateedit.h"

#include <QDateEdit>
#include <QEvent>
#include <QLineEdit>
#include <QPointer>

ActionOnEvent::ActionOnEvent(int action, QObject* parent)
    : QObject(parent)
    , m_action(action)
{ }

void ActionOnEvent::installOn(QLineEdit* edit)
{
    if (edit)
        edit->installEventFilter(this);
}

void ActionOnEvent::installOn(StyledDateEdit* edit)
{
    if (edit)
        edit->installEventFilter(this);
}

void ActionOnEvent::installOn(DoubleLineEdit* edit)
{
    if (edit)
        edit->installEventFilter(this);
}

bool ActionOnEvent::eventFilter(QObject* object, QEvent* event)
{
    const QEvent::Type type = event->type();
    const bool focusOrRelease = type == QEvent::FocusIn || type == QEvent::MouseButtonRelease;
    switch (m_action) {
    case 1:
        if (focusOrRelease) {
            auto* edit = qobject_cast<QLineEdit*>(object);
            if (edit && edit->text().isEmpty()) {
                // Queued, so it runs after the framework has placed the cursor for
                // this event. The box may be gone by then: the guard drops the call.
                QPointer<QWidget> guard(edit);
                QMetaObject::invokeMethod(
                    this,
                    [this, guard] {
                        if (guard)
                            resetCursor(guard);
                    },
                    Qt::QueuedConnection);
            }
        }
        break;
    case 4:
        if (type == QEvent::FocusIn) {
            if (auto* edit = qobject_cast<QDateEdit*>(object)) {
                // A blank date is its minimum; nothing is done with it yet.
                const bool blank = edit->date() == edit->minimumDate();
                Q_UNUSED(blank);
            }
        }
        break;
    case 5:
        if (focusOrRelease) {
            auto* edit = qobject_cast<DoubleLineEdit*>(object);
            if (edit) {
                const QString text = edit->text();
                if (text == QLatin1String("0") || text == QLatin1String("0.00")
                    || text == QLatin1String("0.0000"))
                    edit->selectAll();
            }
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(object, event);
}

void ActionOnEvent::resetCursor(QWidget* widget)
{
    if (auto* edit = qobject_cast<QLineEdit*>(widget))
        edit->setCursorPosition(0);
}
