// The steps form pages and worksheet pages share over their binding tables:
// a change handler's look-up and store, the page-to-fields write, the redraw.
#pragma once

#include "actiononevent.h"
#include "cboolfield.h"
#include "cdatefield.h"
#include "cfloatfield.h"
#include "cintfield.h"
#include "cstringfield.h"
#include "pagebindings.h"
#include "stringlineedit.h"
#include "styledcombobox.h"
#include "styleddateedit.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace Bedrock {

// An int-valued binding may sit on any of the integer-like fields.
inline int intValue(CField* field)
{
    if (auto* f = dynamic_cast<CIntField*>(field))
        return f->m_value;
    if (auto* f = dynamic_cast<CBoolField*>(field))
        return f->m_value;
    if (auto* f = dynamic_cast<CFloatField*>(field))
        return f->m_value >= -2147483648.0 && f->m_value < 2147483648.0 ? int(f->m_value) : 0;
    return 0;
}

inline void setIntValue(CField* field, int value)
{
    if (auto* f = dynamic_cast<CIntField*>(field))
        f->m_value = value;
    else if (auto* f = dynamic_cast<CBoolField*>(field))
        f->m_value = value;
    else if (auto* f = dynamic_cast<CFloatField*>(field))
        f->m_value = value;
}

// The widget the sender names and its field, or nulls when either map lacks it.
template<typename W, typename F>
std::pair<W*, F*> boundBy(const std::map<QString, W*>& edits, const std::map<W*, F*>& fields,
                          QObject* sender)
{
    if (!sender)
        return { nullptr, nullptr };
    const auto e = edits.find(sender->objectName());
    if (e == edits.end())
        return { nullptr, nullptr };
    const auto f = fields.find(e->second);
    if (f == fields.end() || !f->second)
        return { nullptr, nullptr };
    return { e->second, f->second };
}

// Each store reads the sender's widget into its field as it stands, with no
// validation, and gives the field, or null when the sender is not bound.
template<typename T> CField* storeFloat(T& t, QObject* sender)
{
    auto [w, f] = boundBy(t.m_floatEdits, t.m_floatFields, sender);
    if (f)
        f->m_value = w->getDouble();
    return f;
}

template<typename T> CField* storeString(T& t, QObject* sender)
{
    auto [w, f] = boundBy(t.m_stringEdits, t.m_stringFields, sender);
    if (f)
        f->m_text = w->text();
    return f;
}

template<typename T> CField* storeMultiLine(T& t, QObject* sender)
{
    auto [w, f] = boundBy(t.m_multiLineEdits, t.m_multiLineFields, sender);
    if (f)
        f->m_text = w->document()->toPlainText();
    return f;
}

template<typename T> CField* storeCheck(T& t, QObject* sender)
{
    auto [w, f] = boundBy(t.m_checkEdits, t.m_checkFields, sender);
    if (f)
        setIntValue(f, w->checkState() == Qt::Checked ? 1 : 0);
    return f;
}

template<typename T> CField* storeRadio(T& t, QObject* sender)
{
    auto [w, f] = boundBy(t.m_radioEdits, t.m_radioFields, sender);
    if (f)
        setIntValue(f, w->checkedId());
    return f;
}

template<typename T> CField* storeCombo(T& t, QObject* sender)
{
    auto [w, f] = boundBy(t.m_comboEdits, t.m_comboFields, sender);
    if (f)
        setIntValue(f, w->GetCurSelData());
    return f;
}

template<typename T> CField* storeDate(T& t, QObject* sender)
{
    auto [w, f] = boundBy(t.m_dateEdits, t.m_dateFields, sender);
    if (f)
        f->m_value = w->date();
    return f;
}

template<typename T> CField* storeDateTime(T& t, QObject* sender)
{
    auto [w, f] = boundBy(t.m_dateTimeEdits, t.m_dateTimeFields, sender);
    if (f)
        f->m_value = w->dateTime();
    return f;
}

// Calls fn(widget, field) for each binding of `fields`; a widget bound to no
// field (or a null widget) is passed over, as the change handlers pass it over.
template<typename M, typename Fn> void each(const M& fields, Fn fn)
{
    for (const auto& [w, f] : fields) {
        if (w && f)
            fn(w, f);
    }
}

// Every writable pair, texts trimmed; nothing is calculated.
template<typename T> void putAll(T& t)
{
    each(t.m_stringFields, [](auto w, auto f) { f->m_text = w->text().trimmed(); });
    each(t.m_multiLineFields,
         [](auto w, auto f) { f->m_text = w->document()->toPlainText().trimmed(); });
    each(t.m_floatFields, [](auto w, auto f) { f->m_value = w->getDouble(); });
    each(t.m_checkFields,
         [](auto w, auto f) { setIntValue(f, w->checkState() == Qt::Checked ? 1 : 0); });
    each(t.m_radioFields, [](auto w, auto f) { setIntValue(f, w->checkedId()); });
    each(t.m_comboFields, [](auto w, auto f) { setIntValue(f, w->GetCurSelData()); });
    each(t.m_dateFields, [](auto w, auto f) { f->m_value = w->date(); });
    each(t.m_dateTimeFields, [](auto w, auto f) { f->m_value = w->dateTime(); });
}

struct RedrawRules {
    // Installed on each editable amount box on every pass; none when null.
    ActionOnEvent* floatFilter;
    // A radio value without a button: show no choice (form page) or keep the old one.
    bool clearRadioWithoutButton;
    // Multi-line boxes are redrawn (worksheet page) or only loaded once (form page).
    bool multiLines;
};

// Shows every field in its widget, in the order the pages have always used.
template<typename T> void redrawAll(T& t, const RedrawRules& rules)
{
    each(t.m_floatFields, [&](auto w, auto f) {
        w->setDouble(f->m_value);
        if (rules.floatFilter)
            rules.floatFilter->installOn(w);
    });
    each(t.m_shownFloatFields, [](auto w, auto f) { w->setDouble(f->m_value); });
    each(t.m_checkFields,
         [](auto w, auto f) { w->setCheckState(intValue(f) != 0 ? Qt::Checked : Qt::Unchecked); });
    each(t.m_radioFields, [&](auto w, auto f) {
        if (QAbstractButton* button = w->button(intValue(f))) {
            button->setChecked(true);
        } else if (rules.clearRadioWithoutButton) {
            if (QAbstractButton* checked = w->checkedButton()) {
                // An exclusive group never lets its last button go.
                w->setExclusive(false);
                checked->setChecked(false);
                w->setExclusive(true);
            }
        }
    });
    each(t.m_comboFields, [](auto w, auto f) { w->SetCurSelData(intValue(f)); });
    each(t.m_dateFields, [](auto w, auto f) { w->setDate(f->m_value); });
    each(t.m_dateTimeFields, [](auto w, auto f) { w->setDatetime(f->m_value); });
    each(t.m_shownDateFields, [](auto w, auto f) { w->setDate(f->m_value); });
    each(t.m_stringFields, [](auto w, auto f) { w->setText(f->m_text); });
    each(t.m_shownStringFields, [](auto w, auto f) { w->setText(f->m_text); });
    if (rules.multiLines)
        each(t.m_multiLineFields, [](auto w, auto f) { w->setPlainText(f->m_text); });
}

} // namespace Bedrock
