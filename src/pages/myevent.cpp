#include "myevent.h"

MyEvent::MyEvent(int type, int value)
    : QEvent(QEvent::Type(type))
    , m_value(value)
{ }

// Out of line so the class's type information lives in the library alone, and
// dynamic_cast across the library's boundary sees one class.
MyEvent::~MyEvent() = default;

EventT1013Sync::EventT1013Sync()
    : MyEvent(Type, 0)
{ }

EventRC59ESync::EventRC59ESync()
    : MyEvent(Type, 0)
{ }

EventByEventID::EventByEventID(int type)
    : MyEvent(type, 0)
{ }

EventNeedWorksheet::EventNeedWorksheet(int id)
    : MyEvent(Type, id)
{ }

EventForwardEdit::EventForwardEdit(int form)
    : MyEvent(Type, form)
{ }
