// ActionOnEvent: the event filter a page installs on its boxes to adjust them
// when they take the focus.
#pragma once

#include "libbedrock_export.h"

#include <QObject>

class QLineEdit;
class QWidget;
class DoubleLineEdit;
class StyledDateEdit;

/*
 * What the filter does depends on its action; it never stops an event.
 *   1  focus in or mouse release on an empty QLineEdit: the cursor goes to the
 *      start, after the framework has placed it (a queued resetCursor).
 *   4  focus in on a QDateEdit: reads the date and its minimum, no action.
 *   5  focus in or mouse release on a DoubleLineEdit showing exactly "0",
 *      "0.00" or "0.0000": the text is selected, so the first key replaces it.
 * Other actions do nothing.
 */
class LIBBEDROCK_EXPORT ActionOnEvent : public QObject
{
    Q_OBJECT

public:
    ActionOnEvent(int action, QObject* parent);

    void installOn(QLineEdit* edit);
    void installOn(StyledDateEdit* edit);
    void installOn(DoubleLineEdit* edit);

    bool eventFilter(QObject* object, QEvent* event) override;

    int m_action;

public Q_SLOTS:
    // Moves the cursor of a QLineEdit to the start; any other widget is left alone.
    void resetCursor(QWidget* widget);
};
