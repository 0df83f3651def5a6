#include "styledcheckbox.h"

StyledCheckBox::StyledCheckBox(QWidget* parent)
    : QCheckBox(parent)
{
    setStyleSheet(QStringLiteral("QCheckBox:checked{color:blue}"));
}

void StyledCheckBox::makeBold()
{
    setStyleSheet(QStringLiteral(
        "QCheckBox::indicator:!checked{border:2px solid black}  QCheckBox:checked{color:blue}"));
}
