// Gallery of the library's input widgets, each in the states a person meets on
// a form page. It writes one PNG per widget and one of the whole panel into the
// folder it is given, so the pictures of the README can be made again at will:
//
//   bedrock-gallery DIR
//
// It draws on the offscreen platform unless QT_QPA_PLATFORM says otherwise.
#include <LibBedrock.h>

#include <QApplication>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QTextStream>

#include <utility>
#include <vector>

namespace {

struct Shot {
    QString file;
    QWidget* widget;
};

class Panel : public QWidget
{
public:
    Panel()
    {
        setObjectName(QStringLiteral("panel"));
        setWindowTitle(QStringLiteral("LibBedrock widgets"));
        setAutoFillBackground(true);
        QPalette pal = palette();
        pal.setColor(QPalette::Window, Qt::white);
        setPalette(pal);
        m_grid = new QGridLayout(this);
        m_grid->setHorizontalSpacing(16);
        m_grid->setVerticalSpacing(8);
        m_grid->setColumnMinimumWidth(1, 220);
    }

    // The label reads as a form line; the widget stands beside it, as on a page.
    template<typename W> W* add(const QString& file, const QString& caption, W* widget)
    {
        auto* label = new UnderlineLabel(this);
        label->setText(caption);
        const int row = m_grid->rowCount();
        m_grid->addWidget(label, row, 0);
        m_grid->addWidget(widget, row, 1);
        m_shots.push_back({ file, widget });
        return widget;
    }

    const std::vector<Shot>& shots() const { return m_shots; }

private:
    QGridLayout* m_grid;
    std::vector<Shot> m_shots;
};

// Stands for the pointer resting on a box, so the hover colour shows in a still picture.
void hover(QWidget* w)
{
    w->setAttribute(Qt::WA_UnderMouse, true);
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTextStream err(stderr);
    if (argc != 2) {
        err << "usage: bedrock-gallery DIR\n";
        return 2;
    }
    const QDir dir(QString::fromLocal8Bit(argv[1]));
    if (!QDir().mkpath(dir.path())) {
        err << "cannot make " << dir.path() << '\n';
        return 1;
    }

    Panel panel;
    // Line edits are direct children of the panel, as a door box must be of its page.
    auto* entry = panel.add(QStringLiteral("string-entry.png"), QObject::tr("Entry box"),
                            new StringLineEdit(&panel));
    entry->setText(QStringLiteral("Marie Tremblay"));

    auto* amount
        = panel.add(QStringLiteral("amount-entry.png"), QObject::tr("Amount box, under the mouse"),
                    new DoubleLineEdit(&panel));
    amount->setDouble(1234.5);
    hover(amount);

    auto* door
        = panel.add(QStringLiteral("worksheet-door.png"),
                    QObject::tr("Worksheet door, under the mouse"), new DoubleLineEdit(&panel));
    door->setAttID(1);
    door->setWorksheetType(1);
    door->setDouble(8790);
    hover(door);

    auto* forward = panel.add(QStringLiteral("forward-box.png"),
                              QObject::tr("Amount from another form"), new CForwardEdit(&panel));
    forward->setDouble(52000);

    auto* disabled = panel.add(QStringLiteral("disabled-box.png"), QObject::tr("Disabled box"),
                               new DoubleLineEdit(&panel));
    disabled->setDouble(15.75);
    disabled->setEnabled(false);

    auto* zero
        = panel.add(QStringLiteral("zero-selected.png"),
                    QObject::tr("Zero amount, selected on focus"), new DoubleLineEdit(&panel));
    zero->setDouble(0);
    auto* zeroFilter = new ActionOnEvent(5, &panel);
    zeroFilter->installOn(zero);

    auto* provinces = panel.add(QStringLiteral("provinces.png"),
                                QObject::tr("Province of residence"), new CT1ComboBox(&panel));
    provinces->LoadProvs();
    provinces->SetCurSelData(ENUM_PROV_ON);

    auto* blankDate = panel.add(QStringLiteral("date-blank.png"), QObject::tr("Date, blank"),
                                new StyledDateEdit(&panel));
    blankDate->setDisplayFormat(QStringLiteral("yyyy/MM/dd"));
    blankDate->clear();

    auto* setDate = panel.add(QStringLiteral("date-set.png"), QObject::tr("Date, set"),
                              new StyledDateEdit(&panel));
    setDate->setDisplayFormat(QStringLiteral("yyyy/MM/dd"));
    setDate->setDate(QDate(1958, 3, 14));

    panel.add(QStringLiteral("nulldate-blank.png"), QObject::tr("Date with its own blank, blank"),
              new CustomNullDateEdit(QDate(), &panel));

    panel.add(QStringLiteral("nulldate-set.png"), QObject::tr("Date with its own blank, set"),
              new CustomNullDateEdit(QDate(2025, 12, 31), &panel));

    auto* stamp = panel.add(QStringLiteral("datetime-set.png"), QObject::tr("Date and time"),
                            new StyledDateTimeEdit(&panel));
    stamp->setDisplayFormat(QStringLiteral("yyyy/MM/dd HH:mm"));
    stamp->setDatetime(QDateTime(QDate(2026, 4, 30), QTime(23, 59)));

    auto* plain = panel.add(QStringLiteral("check-plain.png"), QObject::tr("Check box"),
                            new StyledCheckBox(&panel));
    plain->setText(QObject::tr("Resident of Canada all year"));
    plain->setChecked(true);

    auto* bold = panel.add(QStringLiteral("check-bold.png"), QObject::tr("Check box, bold"),
                           new StyledCheckBox(&panel));
    bold->setText(QObject::tr("Claiming the disability amount"));
    bold->makeBold();

    panel.show();
    panel.activateWindow();
    // The zero box takes the focus as a click would, so its filter selects the zero.
    zero->setFocus(Qt::MouseFocusReason);
    QApplication::processEvents();

    int failures = 0;
    auto save = [&](QWidget* w, const QString& file) {
        const QString path = dir.filePath(file);
        if (!w->grab().save(path)) {
            err << "cannot write " << path << '\n';
            ++failures;
        }
    };
    for (const Shot& shot : panel.shots())
        save(shot.widget, shot.file);
    save(&panel, QStringLiteral("panel.png"));
    return failures == 0 ? 0 : 1;
}
