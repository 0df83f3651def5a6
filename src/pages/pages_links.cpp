#include "pages_p.h"

#include <QLabel>

namespace Bedrock {

void makeLabelLinkable(QLabel* label)
{
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::LinksAccessibleByMouse
                                   | Qt::LinksAccessibleByKeyboard);
    label->setOpenExternalLinks(true);
}

void setLabelLink(QLabel* label, QString const& url, QString const& text)
{
    // Both places at once, so a "%2" inside the address stays as it is.
    label->setText(QStringLiteral("<a href=\"%1\">%2</a>").arg(url, text));
    label->setTextFormat(Qt::RichText);
    makeLabelLinkable(label);
}

} // namespace Bedrock
