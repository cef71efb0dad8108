#include "tools/check/rules/ControlTypes.h"

#include <algorithm>
#include <iterator>

namespace Tobrix::Tools {

using Templates::controlTypeNames;
using Templates::CTemplateColumn;

namespace {

constexpr unsigned bit(CTemplateColumn::ColumnType type)
{
    return 1U << static_cast<unsigned>(type);
}

constexpr unsigned text = bit(CTemplateColumn::Text);
constexpr unsigned integer = bit(CTemplateColumn::Integer);
constexpr unsigned decimal = bit(CTemplateColumn::Decimal);
constexpr unsigned boolean = bit(CTemplateColumn::Boolean);
constexpr unsigned date = bit(CTemplateColumn::Date);
constexpr unsigned time = bit(CTemplateColumn::Time);
constexpr unsigned anything = text | integer | decimal | boolean | date | time;

struct ControlUse
{
    QLatin1String control;
    unsigned types;
    bool isDecoration = false;
    bool isBoundToList = false;
};

// clang-format off
constexpr ControlUse controlUses[] = {
    {QLatin1String(""), anything, false, true},
    {QLatin1String("SimpleTextbox"), text | integer | decimal | date | time},
    {QLatin1String("MaskedTextbox"), text | integer | decimal | date | time},
    {QLatin1String("ComboList"), text | integer | decimal | boolean, false, true},
    {QLatin1String("NumericUpDown"), integer | decimal},
    {QLatin1String("DateOnlyPicker"), date},
    {QLatin1String("TimeOnlyPicker"), time},
    {QLatin1String("CheckBox"), integer | boolean},
    {QLatin1String("TextButton"), anything, true},
    {QLatin1String("ComboTextBox"), text | integer | decimal},
    {QLatin1String("BitMask"), integer},
    {QLatin1String("DirectoryPicker"), text},
    {QLatin1String("FilePicker"), text},
    {QLatin1String("ColorPicker"), text | integer},
    {QLatin1String("FontPicker"), text},
    {QLatin1String("SectionTitle"), anything, true},
    {QLatin1String("PictureBox"), text},
    {QLatin1String("CommandButton"), anything, true},
    {QLatin1String("MultipleChoice"), text | integer},
    {QLatin1String("MultiLineTextbox"), text},
};

struct TypeName
{
    CTemplateColumn::ColumnType type;
    QLatin1String name;
};

constexpr TypeName typeNames[] = {
    {CTemplateColumn::Unknown, QLatin1String("unknown")},
    {CTemplateColumn::Text, QLatin1String("text")},
    {CTemplateColumn::Integer, QLatin1String("whole number")},
    {CTemplateColumn::Decimal, QLatin1String("decimal number")},
    {CTemplateColumn::Boolean, QLatin1String("boolean")},
    {CTemplateColumn::Date, QLatin1String("date")},
    {CTemplateColumn::Time, QLatin1String("time")},
};
// clang-format on

const ControlUse *useOf(int control)
{
    const QString name = controlName(control);
    const auto use = std::find_if(std::begin(controlUses), std::end(controlUses),
                                  [&name](const ControlUse &row) { return name == row.control; });
    return name.isNull() || use == std::end(controlUses) ? nullptr : use;
}

} // namespace

QString controlName(int control)
{
    const auto row = std::find_if(std::begin(controlTypeNames), std::end(controlTypeNames),
                                  [control](const auto &entry) { return entry.controlType == control; });
    return row == std::end(controlTypeNames) ? QString() : QString(row->name);
}

bool canEdit(int control, CTemplateColumn::ColumnType type)
{
    const ControlUse *use = useOf(control);
    return !use || (use->types & bit(type)) != 0;
}

bool isDecoration(int control)
{
    const ControlUse *use = useOf(control);
    return use && use->isDecoration;
}

bool isBoundToList(int control)
{
    const ControlUse *use = useOf(control);
    return use && use->isBoundToList;
}

QString typeName(CTemplateColumn::ColumnType type)
{
    return typeNames[static_cast<std::size_t>(type)].name;
}

} // namespace Tobrix::Tools
