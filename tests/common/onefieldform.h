// A form of one field of a chosen kind, for tests of what a form does with
// each kind of field: records, rollover, generators.
#pragma once

#include "cboolfield.h"
#include "cdatefield.h"
#include "cfloatfield.h"
#include "cintfield.h"
#include "cstringfield.h"
#include "ctaxdata_form.h"

#include <QVariant>

#include <memory>

// In the order of the field type tags.
enum FieldKind : int { KindInt, KindBool, KindString, KindFloat, KindDate, KindDateTime };

struct OneFieldForm : CTaxData_Form {
    // A string field is 20 wide; every field starts empty, with attribute 0.
    explicit OneFieldForm(int kind, const char* name = "fld_f")
        : CTaxData_Form(ENUM_FORM_T1)
        , field(make(kind))
    {
        m_fields.push_back(field.get());
        field->m_name = name;
    }

    // The value as a QVariant of the field's own type: int, int, QString,
    // double, QDate or QDateTime.
    QVariant value() const
    {
        switch (field->getFieldType()) {
        case FIELD_TYPE_INT:
            return static_cast<CIntField*>(field.get())->m_value;
        case FIELD_TYPE_BOOL:
            return static_cast<CBoolField*>(field.get())->m_value;
        case FIELD_TYPE_STRING:
            return QString(static_cast<CStringField*>(field.get())->m_text);
        case FIELD_TYPE_FLOAT:
            return static_cast<CFloatField*>(field.get())->m_value;
        case FIELD_TYPE_DATE:
            return static_cast<CDateField*>(field.get())->m_value;
        default:
            return static_cast<CDateTimeField*>(field.get())->m_value;
        }
    }

    // Stores straight into the value, with no rounding or clean-up.
    void setValue(const QVariant& v)
    {
        switch (field->getFieldType()) {
        case FIELD_TYPE_INT:
            static_cast<CIntField*>(field.get())->m_value = v.toInt();
            break;
        case FIELD_TYPE_BOOL:
            static_cast<CBoolField*>(field.get())->m_value = v.toInt();
            break;
        case FIELD_TYPE_STRING:
            static_cast<CStringField*>(field.get())->m_text = v.toString();
            break;
        case FIELD_TYPE_FLOAT:
            static_cast<CFloatField*>(field.get())->m_value = v.toDouble();
            break;
        case FIELD_TYPE_DATE:
            static_cast<CDateField*>(field.get())->m_value = v.toDate();
            break;
        default:
            static_cast<CDateTimeField*>(field.get())->m_value = v.toDateTime();
            break;
        }
    }

    std::unique_ptr<CField> field;

private:
    static std::unique_ptr<CField> make(int kind)
    {
        switch (kind) {
        case KindInt:
            return std::make_unique<CIntField>();
        case KindBool:
            return std::make_unique<CBoolField>();
        case KindString:
            return std::make_unique<CStringField>("", 20);
        case KindFloat:
            return std::make_unique<CFloatField>(0.0, 0);
        case KindDate:
            return std::make_unique<CDateField>();
        default:
            return std::make_unique<CDateTimeField>();
        }
    }
};
