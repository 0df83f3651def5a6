// ScrollTaxForm: the scroll area a form page is shown in.
#pragma once

#include "libbedrock_export.h"

#include <QScrollArea>

// The content (a page) fills the area's width and scrolls; the colour is a style
// sheet colour, e.g. "#f4f4ff".
class LIBBEDROCK_EXPORT ScrollTaxForm : public QScrollArea
{
    Q_OBJECT

public:
    ScrollTaxForm(QString const& color, QWidget* parent, QWidget* content);

    void setBKColor(QString const& color);
    QWidget* getCtntWgt();

    QString m_bkColor;
    QWidget* m_content;
};
