// What the message dialogs share: their links.
#pragma once

class QLabel;
class QString;

namespace Bedrock {

// Lets the label's links open in the default browser, and its text be
// selected with the mouse and its links reached with the keyboard.
void makeLabelLinkable(QLabel* label);

// Shows `text` as a link to `url` in rich text, linkable as above. Neither is
// escaped: the callers pass addresses and words of their own.
void setLabelLink(QLabel* label, QString const& url, QString const& text);

} // namespace Bedrock
