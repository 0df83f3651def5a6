// Evens out the look of a dialog once it is built.
#pragma once

#include "libbedrock_export.h"

class QWidget;

/*
 * Walks the widgets below `root` breadth first and adjusts the leaves: push
 * buttons become 32 pixels high with a fixed width, labels and list widgets take
 * 14-point fonts. A widget with children of its own is walked into, not adjusted
 * (a list widget excepted: its children are its own view's parts, so it counts as
 * a leaf). The labels of an About box ("aboutTitleLabel", "aboutVersionLabel",
 * "aboutCopyrightLabel", "aboutUrlLabel", "aboutLicenseLabel") and all below them
 * keep their look. The root is never adjusted; null does nothing.
 */
LIBBEDROCK_EXPORT void genAdjustWidgetAppearanceToOS(QWidget* root);
