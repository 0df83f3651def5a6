// DlgMsgWithLink: two lines of message and a link the user can open.
#pragma once

#include "libbedrock_export.h"

#include <QDialog>

namespace Ui {
class DlgMsgWithLink;
}

class LIBBEDROCK_EXPORT DlgMsgWithLink : public QDialog
{
    Q_OBJECT

public:
    // A non-empty title replaces the form's window title.
    DlgMsgWithLink(QString const& title, QWidget* parent);
    ~DlgMsgWithLink() override;

    void setMsg1(QString const& text);
    void setMsg2(QString const& text);
    // The address is the link's visible text as well.
    void setLink(QString const& url);
    void setLink2(QString const& url, QString const& text);

    Ui::DlgMsgWithLink* m_ui;
};
