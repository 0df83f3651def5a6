// Helpers of the widget tests: a widget made afresh for each table row, a
// property compared per row, and a window that really has the focus.
#pragma once

#include <QApplication>
#include <QTest>
#include <QWidget>

#include <functional>
#include <memory>

using Make = std::function<QWidget*()>;
Q_DECLARE_METATYPE(Make)

// A `Box`, then `prepare` on it.
template<typename Box> Make made(std::function<void(Box*)> prepare = {})
{
    return [prepare] {
        auto* box = new Box;
        if (prepare)
            prepare(box);
        return box;
    };
}

// For tables of columns make (Make), property (QByteArray) and value (QVariant).
inline void compareMadeProperty()
{
    QFETCH(Make, make);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    std::unique_ptr<QWidget> w(make());
    QCOMPARE(w->property(property), value);
}

inline void showActive(QWidget& window)
{
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
}
