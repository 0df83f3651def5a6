// The binding tables shared by form pages and worksheet pages: which widget
// shows which field.
#pragma once

#include <QString>

#include <map>

class CDateField;
class CDateTimeField;
class CField;
class CFloatField;
class CStringField;
class DoubleLineEdit;
class QButtonGroup;
class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class StyledDateEdit;
class StyledDateTimeEdit;

/*
 * Eleven pairs of maps: the first of a pair goes from a widget's object name
 * (case-sensitive, unique in its page) to the widget, the second from the widget
 * to its field. A change handler finds its field through the sender's name, so
 * both maps must hold a widget. Nothing is owned; a field must outlive its page.
 * The "shown" pairs are displayed only and never written back.
 *
 * Check boxes, radio groups and combo boxes hold an int: bind them to a
 * CBoolField, a CIntField or a CFloatField (stored as a whole number). A form
 * page's combo boxes are CT1ComboBox; a worksheet page's any StyledComboBox.
 */
template<typename ComboT> class PageBindingTables
{
public:
    std::map<QString, DoubleLineEdit*> m_floatEdits;
    std::map<DoubleLineEdit*, CFloatField*> m_floatFields;
    std::map<QString, DoubleLineEdit*> m_shownFloatEdits;
    std::map<DoubleLineEdit*, CFloatField*> m_shownFloatFields;
    std::map<QString, QCheckBox*> m_checkEdits;
    std::map<QCheckBox*, CField*> m_checkFields;
    std::map<QString, QButtonGroup*> m_radioEdits;
    std::map<QButtonGroup*, CField*> m_radioFields;
    std::map<QString, ComboT*> m_comboEdits;
    std::map<ComboT*, CField*> m_comboFields;
    std::map<QString, StyledDateEdit*> m_dateEdits;
    std::map<StyledDateEdit*, CDateField*> m_dateFields;
    std::map<QString, StyledDateEdit*> m_shownDateEdits;
    std::map<StyledDateEdit*, CDateField*> m_shownDateFields;
    std::map<QString, StyledDateTimeEdit*> m_dateTimeEdits;
    std::map<StyledDateTimeEdit*, CDateTimeField*> m_dateTimeFields;
    std::map<QString, QLineEdit*> m_stringEdits;
    std::map<QLineEdit*, CStringField*> m_stringFields;
    std::map<QString, QLineEdit*> m_shownStringEdits;
    std::map<QLineEdit*, CStringField*> m_shownStringFields;
    std::map<QString, QPlainTextEdit*> m_multiLineEdits;
    std::map<QPlainTextEdit*, CStringField*> m_multiLineFields;
};
