// The custom events by which widgets ask their page, and pages their application,
// for what only the receiver can do (open a worksheet, show another form).
#pragma once

#include "libbedrock_export.h"

#include <QEvent>

/*
 * The type numbers are plain integers chosen by hand. The library itself posts
 * and handles only 1234 (a box asks for its worksheet) and 1235 (a page asks
 * the application to show a form); the others are defined for the
 * applications. Post them with QCoreApplication::postEvent: the queue then owns
 * the event.
 */
class LIBBEDROCK_EXPORT MyEvent : public QEvent
{
public:
    MyEvent(int type, int value);
    ~MyEvent() override;

    int m_value;
};

// Asks the application to bring its T1013 form up to date with the return.
class LIBBEDROCK_EXPORT EventT1013Sync : public MyEvent
{
public:
    enum { Type = 1013 };
    EventT1013Sync();
};

// Asks the application to bring its RC59 form up to date with the return.
class LIBBEDROCK_EXPORT EventRC59ESync : public MyEvent
{
public:
    enum { Type = 5901 };
    EventRC59ESync();
};

// An event of any type the application names, carrying no value.
class LIBBEDROCK_EXPORT EventByEventID : public MyEvent
{
public:
    explicit EventByEventID(int type);
};

// Posted by a worksheet door box to its direct parent; m_value is the box's attribute id.
class LIBBEDROCK_EXPORT EventNeedWorksheet : public MyEvent
{
public:
    enum { Type = 1234 };
    explicit EventNeedWorksheet(int id);
};

// Posted by a page to its parent to show another form; m_value is the form number.
class LIBBEDROCK_EXPORT EventForwardEdit : public MyEvent
{
public:
    enum { Type = 1235 };
    explicit EventForwardEdit(int form);
};
