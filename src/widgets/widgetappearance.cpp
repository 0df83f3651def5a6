#include "widgetappearance.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QQueue>

namespace {

bool isLeftAlone(const QString& name)
{
    static const QLatin1String names[]
        = { QLatin1String("aboutTitleLabel"), QLatin1String("aboutVersionLabel"),
            QLatin1String("aboutCopyrightLabel"), QLatin1String("aboutUrlLabel"),
            QLatin1String("aboutLicenseLabel") };
    for (const QLatin1String& n : names) {
        if (name == n)
            return true;
    }
    return false;
}

void setPointSize(QWidget* widget, int points)
{
    QFont font = widget->font();
    font.setPointSize(points);
    widget->setFont(font);
}

} // namespace

void genAdjustWidgetAppearanceToOS(QWidget* root)
{
    if (!root)
        return;
    QQueue<QWidget*> queue;
    queue.enqueue(root);
    while (!queue.isEmpty()) {
        const QWidget* parent = queue.dequeue();
        for (QObject* object : parent->children()) {
            auto* child = qobject_cast<QWidget*>(object);
            if (!child || isLeftAlone(child->objectName()))
                continue;
            // A list widget always has children (viewport, scroll bars), so under
            // the has-children rule it would never get its font; it is a leaf here.
            if (auto* list = qobject_cast<QListWidget*>(child)) {
                setPointSize(list, 14);
                continue;
            }
            if (!child->children().isEmpty()) {
                queue.enqueue(child);
                continue;
            }
            if (auto* button = qobject_cast<QPushButton*>(child)) {
                button->setMinimumHeight(32);
                button->setMaximumHeight(32);
                const QSizePolicy old = button->sizePolicy();
                button->setSizePolicy(QSizePolicy(QSizePolicy::Fixed, old.horizontalPolicy()));
            } else if (qobject_cast<QLabel*>(child)) {
                setPointSize(child, 14);
            }
        }
    }
}
