#pragma once

#include "model/CTemplateColumn.h"
#include "rawdata/ValueKind_p.h"

#include <QHash>
#include <QString>

#include <vector>

namespace Tobrix::Tools {

// What a format's reader makes of a template, with the places in the file where it all comes from. The two
// formats come to the same model, so that most rules need to know nothing of them.

/// A value of the file: what the reader gets, and where it stands.
struct Value
{
    QString text;            ///< null when the file does not give it
    int at = -1;             ///< of the attribute's name or of the text; of the element when there is none
    bool isCaptured = false; ///< whether it is the white space behind an empty element

    bool isGiven() const { return !text.isNull(); }
    bool isEmpty() const { return text.isEmpty(); }

    /// Whether nobody sees anything of it.
    bool isBlank() const { return text.trimmed().isEmpty(); }
    bool isWhiteSpace() const { return !isEmpty() && isBlank(); }

    /// Whether white space stands around the value, so that it is another one than it seems to be.
    bool isPadded() const
    {
        return !text.isEmpty() && (text.front().isSpace() || text.back().isSpace()) && !isBlank();
    }
};

/// A value with the name of its attribute or element, for the rules about values of any meaning. Plain texts
/// are left out: nothing can be wrong with them.
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
    int replacedBy = -1; ///< the number of a later view of the same id, which is the one that counts

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
    int view = -1; ///< -1 when the view that it names is not there

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
    int valueTransferResetAt = -1; ///< of a later element that takes a "true" back

    // What becomes of them.
    Templates::CTemplateColumn::ColumnType type = Templates::CTemplateColumn::Unknown;
    int control = 0;
    QString path;    ///< bound column
    QString table;   ///< and its table
    QString ownPath; ///< bound column before it is replaced by what a reference shows
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
    /// Its range, which a column for whole numbers has in whole numbers.
    ColumnRange range() const;
    bool isNumeric() const
    {
        return type == Templates::CTemplateColumn::Integer || type == Templates::CTemplateColumn::Decimal;
    }
    /// Whether it holds an identifier, which is the host's to make.
    bool isIdentifier() const
    {
        return dataType.text == QLatin1String("Guid") || dataType.text == QLatin1String("GUI");
    }
    /// Whether new records start with a value that the file or the library gives.
    bool hasDefault() const;
    /// Whether it is bound to nothing that could be a field's name.
    bool isUnbound() const { return path.trimmed().isEmpty(); }
};

struct ListItemModel
{
    int at = 0;
    Value item;
    Value internalValue;
    int sortOrder = -1;
};

/// A value list, with all items that come under its name.
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

/// An empty element of the legacy format that takes the white space behind it for its text.
struct CapturedSpace
{
    int at = 0;
    QString name;
    Templates::ValueKind kind = Templates::ValueKind::Text;
};

/// A text of the legacy format that is not read, since another piece of its element is.
struct IgnoredText
{
    int at = 0;
    QString name;
    QString read; ///< what is read instead
};

/// An element that a later one of its name overwrites, in the legacy format.
struct OverwrittenElement
{
    int at = 0; ///< of the later one
    int overwrittenAt = 0;
    QString name;
};

/// A caption of the legacy format that reaches no class, or a group that is cleared by another one or by the
/// first one behind it.
struct LostLegend
{
    enum Kind { CaptionWithoutClass, ClearedGroup, ClearedClasses };

    int at = 0;
    Kind kind = CaptionWithoutClass;
    QString name;
    int count = 0; ///< of the classes that are cleared
};

/// A section of the legacy format where none is looked for.
struct UnreachableSection
{
    int at = 0;
    QString name;
    QString within;
};

/// A default value of the current format, which stands apart from its column.
struct DefaultModel
{
    int at = 0;
    QString path;
    Value view;
    Value value;
    int overwrites = -1; ///< the place of an earlier one for the same column
    bool isUsed = false;
};

struct BandModel
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
    std::vector<ColumnModel> columns; ///< those of replaced views left out, where they are lost with them
    std::vector<ListModel> lists;     ///< in the order of their names, as the record keeps them
    std::vector<ListDeclaration> listDeclarations;
    std::vector<DefaultModel> defaults;
    std::vector<BandModel> legends[2]; ///< sections, laterals
    std::vector<ReadValue> values;

    // What only the legacy format knows.
    std::vector<CapturedSpace> capturedSpaces;
    std::vector<IgnoredText> ignoredTexts;
    std::vector<OverwrittenElement> overwrittenElements;
    std::vector<LostLegend> lostLegends;
    std::vector<UnreachableSection> unreachableSections;
    std::vector<int> itemsWithoutList;
    /// Of a legend class past the limit, when no group behind it takes others back; -1 when there is none.
    int bandTooManyAt = -1;

    /// To be called when the model is complete, before anything is looked up in it.
    void makeIndex();

    /// The list of a name; null when no item comes under it.
    const ListModel *list(const QString &name) const;
    /// The columns of a view, in the order of the file, whether a host gets them or not.
    std::vector<const ColumnModel *> columnsOf(std::size_t view) const;

private:
    QHash<QString, int> m_lists;
    std::vector<std::vector<int>> m_columnsOfViews;
};

} // namespace Tobrix::Tools
