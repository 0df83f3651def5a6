// StyledCheckBox: the check box of the forms, blue when ticked.
#pragma once

#include "libbedrock_export.h"

#include <QCheckBox>

class LIBBEDROCK_EXPORT StyledCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    explicit StyledCheckBox(QWidget* parent = nullptr);

    // Gives an unticked box a heavy border, so a box without a label still
    // stands out. The font is not touched, despite the name.
    void makeBold();
};
