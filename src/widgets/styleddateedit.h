// The date boxes of the forms, with two ways of showing that no date was given.
#pragma once

#include "libbedrock_export.h"

#include <QDateEdit>
#include <QDateTimeEdit>

/*
 * A blank date is the box's minimum date, shown as "0000/01/01": setDate of an
 * invalid date and clear() both set the minimum, and nullDate() reads it back
 * as a null QDate. English month names whatever the application's locale. The
 * wheel is ignored, so it scrolls the page rather than the date.
 */
class LIBBEDROCK_EXPORT StyledDateEdit : public QDateEdit
{
    Q_OBJECT

public:
    explicit StyledDateEdit(QWidget* parent = nullptr);

    void clear() override;
    void setDate(QDate const& date);
    QDate nullDate() const;

protected:
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void wheelEvent(QWheelEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;
};

// A date and time box; it has no blank value, so nullDate() is always null.
class LIBBEDROCK_EXPORT StyledDateTimeEdit : public QDateTimeEdit
{
    Q_OBJECT

public:
    explicit StyledDateTimeEdit(QWidget* parent = nullptr);

    void clear() override;
    QDate nullDate() const;
    void setDatetime(QDateTime const& dateTime);

protected:
    void wheelEvent(QWheelEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;
};

/*
 * A date box that keeps its own "no date" flag and then shows "0000/00/00"
 * instead of a date. date() and text() answer from the flag. The first arrow
 * step on a blank box starts from today; a date picked from the calendar or
 * typed in makes the box hold a date again.
 */
class LIBBEDROCK_EXPORT CustomNullDateEdit : public QDateEdit
{
    Q_OBJECT

public:
    // Holds 2021-01-01 as its date without showing it until set.
    explicit CustomNullDateEdit(QWidget* parent = nullptr);
    // Blank when `date` is invalid.
    CustomNullDateEdit(QDate const& date, QWidget* parent);
    // Today's date, shown in `format`.
    CustomNullDateEdit(QString const& format, QWidget* parent);

    QDate date() const;
    void setDate(QDate const& date);
    bool hasDate() const;
    QString text() const;
    void updateDisplay();
    QString formatDateString(QDate const& date);

    void stepBy(int steps) override;
    QValidator::State validate(QString& input, int& pos) const override;

    bool m_hasDate;
    QDate m_date;

protected:
    void showEvent(QShowEvent* e) override;
    void focusOutEvent(QFocusEvent* e) override;

private:
    void trackUserDates();
};
