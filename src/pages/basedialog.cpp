#include "basedialog.h"

#include "widgetappearance.h"

BaseDialog::BaseDialog(QString const& title, QWidget* parent)
    : QDialog(parent)
    , m_title(title)
{ }

void BaseDialog::afterCreateUI()
{
    if (!m_title.isEmpty())
        setWindowTitle(m_title);
    genAdjustWidgetAppearanceToOS(this);
}
