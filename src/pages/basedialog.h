// BaseDialog: the dialogs of the family take their title and the platform's
// appearance once their form is built.
#pragma once

#include "libbedrock_export.h"

#include <QDialog>

class LIBBEDROCK_EXPORT BaseDialog : public QDialog
{
    Q_OBJECT

public:
    BaseDialog(QString const& title, QWidget* parent);

    // A non-empty m_title replaces the form's own window title; then the
    // appearance walk evens out buttons and labels. Call it after the form is built.
    virtual void afterCreateUI();

    QString m_title;
};
