// The product's own message boxes: its title over an information or a yes/no
// question.
#pragma once

#include "libbedrock_export.h"

#include <QMessageBox>

// Kind 1 gives the EFile title, any other kind the NetFile title. The titles
// are names and stay untranslated.
LIBBEDROCK_EXPORT void gMsgGetTitle(unsigned char kind, QString& title);

// An information box with the title of `kind` and a single Ok button.
LIBBEDROCK_EXPORT void gMsgInformation(unsigned char kind, QString const& text, QWidget* parent);

// A question with the title of `kind`, answered with Yes or No; returns the
// button pressed.
LIBBEDROCK_EXPORT QMessageBox::StandardButton gMsgQuestion(unsigned char kind, QString const& text,
                                                           QWidget* parent);
