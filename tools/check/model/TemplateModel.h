#pragma once

#include "model/CTemplateColumn.h"
#include "rawdata/ValueKind_p.h"

#include <QHash>
#include <QString>

#include <vector>

namespace Tobrix::Tools {

// What a format reader reads from a template, with offsets into the file. Both formats have the same model,
// so that most rules are independent of the format.

/// A value of the file: the text that the reader gets, and its offset.
struct Value
{
    QString text;            ///< null when it is missing
    int at = -1;             ///< of the attribute's name or of the text; of the element when there is none
    bool isCaptured = false; ///< whether it is the whitespace after an empty element

    bool isGiven() const { return !text.isNull(); }
    bool isEmpty() const { return text.isEmpty(); }

    /// Whether it is empty or whitespace only.
    bool isBlank() const { return text.trimmed().isEmpty(); }
    bool isWhiteSpace() const { return !isEmpty() && isBlank(); }

    /// Whether whitespace before or after the value changes it.
    bool isPadded() const
    {
        return !text.isEmpty() && (text.front().isSpace() || text.back().isSpace()) && !isBlank();
    }
};

/// A value with the name of its attribute or element, for the rules about values of any meaning. Free texts
/// are not included.
struct ReadValue
{
    Value value;
    QString name;
    Templates::ValueKind kind = Templates::ValueKind::Text;
};

struct HeaderModel
{
    int at = 0; ///< of the element that holds the identity, or of the root when there is none
    Value uniqueId;
    Value key;
    Value type;
    Value unitSystem;
};

struct ViewModel
{
    int at = 0;
    Value id;
    Value key;
    int replacedBy = -1; ///< the index of a later view of the same id, which replaces this one

    bool isReplaced() const { return replacedBy >= 0; }
};

/// The limits of a column's values, as a host gets them.
struct ColumnRange
{
    double minimum = 0.0;
    double maximum = 0.0;

    bool isEmpty() const { return minimum > maximum; }
};

struct ColumnModel
{
    int at = 0;
    int view = -1; ///< -1 when the view that it names is missing

    Value viewRef;
    Value caption;
    Value dataType;
    Value controlType;
    Value boundColumn;
    Value tableName;
    Value sortOrder;
    Value listName;
    Value defaultValue;
    Value displayFormat;
    Value rangeFrom;
    Value rangeTo;
    Value step;
    Value length;
    int visibilityAt = -1;
    int mandatoryAt = -1;
    int readOnlyAt = -1;
    Value valueTransfer;
    int valueTransferResetAt = -1; ///< offset of a later element that resets a "true"

    // Results.
    Templates::CTemplateColumn::ColumnType type = Templates::CTemplateColumn::Unknown;
    int control = 0;
    QString path;    ///< bound column
    QString table;   ///< and its table
    QString ownPath; ///< bound column before it is replaced by the referenced one
    int order = 0;
    double minimum = 0.0;
    double maximum = 0.0;
    int maximumLength = 0;
    bool isVisible = false;
    bool isAlwaysHidden = false;
    bool isForcedToDefault = false;
    bool isReadOnly = false;
    bool isMandatory = false;
    bool isVirtual = false;
    bool isExcluded = false;
    bool showsKeyInDetail = false;

    /// Whether a host gets it.
    bool isBuilt() const { return type != Templates::CTemplateColumn::Unknown && !isExcluded && view >= 0; }
    /// Its range, as whole numbers in a column of whole numbers.
    ColumnRange range() const;
    bool isNumeric() const
    {
        return type == Templates::CTemplateColumn::Integer || type == Templates::CTemplateColumn::Decimal;
    }
    /// Whether it holds an identifier, which the host generates.
    bool isIdentifier() const
    {
        return dataType.text == QLatin1String("Guid") || dataType.text == QLatin1String("GUI");
    }
    /// Whether new records start with a value from the file or the library.
    bool hasDefault() const;
    /// Whether its binding cannot be the name of a field.
    bool isUnbound() const { return path.trimmed().isEmpty(); }
};

struct ListItemModel
{
    int at = 0;
    Value item;
    Value internalValue;
    int sortOrder = -1;
};

/// A value list with all items of its name.
struct ListModel
{
    QString name;
    int at = 0; ///< of its first element, or first item where lists have no element of their own
    Value nameValue;
    std::vector<ListItemModel> items; ///< in the order of the file
};

/// An element of the current format that declares a list; several may have one name.
struct ListDeclaration
{
    int at = 0;
    Value name;
    int classType = 0;
};

/// An empty element of the legacy format that takes the whitespace after it for its text.
struct CapturedSpace
{
    int at = 0;
    QString name;
    Templates::ValueKind kind = Templates::ValueKind::Text;
};

/// A text of the legacy format that is not read, since another chunk of its element is.
struct IgnoredText
{
    int at = 0;
    QString name;
    QString read; ///< what is read instead
};

/// An element of the legacy format that a later one of its name overwrites.
struct OverwrittenElement
{
    int at = 0; ///< of the later one
    int overwrittenAt = 0;
    QString name;
};

/// A caption of the legacy format without legend class, or a group that a later one clears.
struct LostLegend
{
    enum Kind { CaptionWithoutClass, ClearedGroup, ClearedClasses };

    int at = 0;
    Kind kind = CaptionWithoutClass;
    QString name;
    int count = 0; ///< of the legend classes that are cleared
};

/// A section of the legacy format in a place where it is not read.
struct UnreachableSection
{
    int at = 0;
    QString name;
    QString within;
};

/// A default value of the current format, which is not inside its column.
struct DefaultModel
{
    int at = 0;
    QString path;
    Value view;
    Value value;
    int overwrites = -1; ///< the offset of an earlier one for the same column
    bool isUsed = false;
};

struct LegendClassModel
{
    int at = 0;
    Value from;
    Value to;
    Value color;
    double lower = -1.0;
    double upper = -1.0;
};

struct TemplateModel
{
    HeaderModel header;
    std::vector<ViewModel> views;
    std::vector<ColumnModel> columns; ///< without those that are lost with a replaced view
    std::vector<ListModel> lists;     ///< in the order of their names, as the record keeps them
    std::vector<ListDeclaration> listDeclarations;
    std::vector<DefaultModel> defaults;
    std::vector<LegendClassModel> legends[2]; ///< sections, laterals
    std::vector<ReadValue> values;

    // Only in the legacy format.
    std::vector<CapturedSpace> capturedSpaces;
    std::vector<IgnoredText> ignoredTexts;
    std::vector<OverwrittenElement> overwrittenElements;
    std::vector<LostLegend> lostLegends;
    std::vector<UnreachableSection> unreachableSections;
    std::vector<int> itemsWithoutList;

    /// To be called when the model is complete, before any look-up.
    void makeIndex();

    /// The list of a name; null when it has no items.
    const ListModel *list(const QString &name) const;
    /// The columns of a view, in the order of the file, whether a host gets them or not.
    std::vector<const ColumnModel *> columnsOf(std::size_t view) const;

private:
    QHash<QString, int> m_lists;
    std::vector<std::vector<int>> m_columnsOfViews;
};

} // namespace Tobrix::Tools
