// The wheel as the window system delivers it. Tests that include this link
// Qt6::GuiPrivate (Debian's qt6-base-private-dev) for its entry point.
#pragma once

#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWidget>

#include <qpa/qwindowsysteminterface.h>

// A wheel turn either way over `w` on a long scrolled page, delivered as the
// window system delivers it (so an ignored turn goes on to the page): the page
// scrolls and `property` stays.
inline void checkWheelIgnored(QWidget* w, const char* property)
{
    QScrollArea page;
    auto* content = new QWidget;
    content->setFixedSize(300, 3000);
    // `w` belongs to the caller: it leaves the page before the page goes.
    struct Lend {
        QWidget* w;
        ~Lend() { w->setParent(nullptr); }
    } lend { w };
    w->setParent(content);
    w->move(10, 1000);
    w->show();
    page.setWidget(content);
    page.resize(320, 200);
    page.verticalScrollBar()->setValue(900); // the widget in mid-page, in view after a turn
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    const QVariant before = w->property(property);
    for (int delta : { -120, 120 }) {
        const int scrolled = page.verticalScrollBar()->value();
        const QPoint at = w->mapTo(&page, QPoint(5, w->height() / 2));
        QWindowSystemInterface::handleWheelEvent(page.windowHandle(), at, page.mapToGlobal(at),
                                                 QPoint(), QPoint(0, delta));
        QWindowSystemInterface::flushWindowSystemEvents();
        QVERIFY(page.verticalScrollBar()->value() != scrolled);
        QCOMPARE(w->property(property), before);
    }
}
