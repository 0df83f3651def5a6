#include "scrolltaxform.h"

#include <QScrollBar>

ScrollTaxForm::ScrollTaxForm(QString const& color, QWidget* parent, QWidget* content)
    : QScrollArea(parent)
    , m_content(content)
{
    const QString barSheet = QStringLiteral("background: #e0e0e0;");
    horizontalScrollBar()->setStyleSheet(barSheet);
    verticalScrollBar()->setStyleSheet(barSheet);
    setWidget(content);
    setWidgetResizable(true);
    setBKColor(color);
}

void ScrollTaxForm::setBKColor(QString const& color)
{
    m_bkColor = color;
    setStyleSheet(QStringLiteral("background:%1").arg(color));
}

QWidget* ScrollTaxForm::getCtntWgt()
{
    return m_content;
}
