// The text boxes of the forms: an entry box, or a door that opens a worksheet
// or shows a value from another form.
#pragma once

#include "libbedrock_export.h"

#include <QLabel>
#include <QLineEdit>

/*
 * A box becomes a worksheet door with setAttID(id > 0): it turns read-only, and
 * a key press (any key but Tab, Shift+Tab included) or a left click posts one
 * EventNeedWorksheet carrying the id to the box's direct parent, which must be
 * the page that handles it. The event is posted, so the worksheet opens after
 * the key or mouse handler has returned. The hover colour tells the user which
 * boxes lead elsewhere: gold for an entry box, green after setForwardFormType
 * or setWorksheetType.
 */
class LIBBEDROCK_EXPORT StringLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit StringLineEdit(QWidget* parent = nullptr);

    virtual void setAttID(int id);

    // Stored only; the box does not limit its text by it.
    void setMaxLen(int len);
    void setForwardFormType(int type);
    void setWorksheetType(int type);
    // Posts the worksheet request as a click does, when the box is a door.
    void postLaunchWS();

    int m_maxLen;
    int m_forwardKind; // 0 none, 1 another form, 2 a worksheet
    int m_forwardType; // the form or worksheet type that goes with m_forwardKind
    int m_attId; // the worksheet this box opens; only values above 0 open anything

Q_SIGNALS:
    // true on focus in, false on focus out; sent after the base handler has run.
    void focussed(bool in, StringLineEdit* edit);

protected:
    bool event(QEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;
    void focusOutEvent(QFocusEvent* e) override;
};

/*
 * An amount box: right-aligned, at least 90 pixels wide, showing m_decimals
 * decimals (s_defDecimals when built). Text is written without thousands
 * separators; commas typed by the user are ignored when read.
 */
class LIBBEDROCK_EXPORT DoubleLineEdit : public StringLineEdit
{
    Q_OBJECT

public:
    explicit DoubleLineEdit(QWidget* parent = nullptr);

    void setAttID(int id) override;

    // Below 1 decimal the value is cut (not rounded) to a whole number.
    void setDouble(double value);
    // Text that is not a finite number reads as 0; with 0 decimals the value is cut.
    double getDouble();

    static int s_defDecimals;
    int m_decimals;

protected:
    bool event(QEvent* e) override;
};

// An amount that comes from another form: teal text until made a door by a setter.
class LIBBEDROCK_EXPORT CForwardEdit : public DoubleLineEdit
{
    Q_OBJECT

public:
    explicit CForwardEdit(QWidget* parent = nullptr);
};

// A label that reads as a form line: a dotted rule under it.
class LIBBEDROCK_EXPORT UnderlineLabel : public QLabel
{
    Q_OBJECT

public:
    explicit UnderlineLabel(QWidget* parent = nullptr);
};
