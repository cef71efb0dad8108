#pragma once

#include "rawdata/FormatRow_p.h"
#include "xml/XmlDocument_p.h"

#include <QVariant>

class QString;

namespace Tobrix::Templates {

class CListItem;
class CProgramView;
class CTemplateColumn;
class CTemplateLegendDataItem;
struct CColumnData;

/// Receives everything that a format reader does with a document: values taken, objects added to the raw
/// record, nodes skipped. Nodes are those of the document.
///
/// Calls come in the order of reading, which may differ from that of the document.
class ReadingObserver
{
public:
    /// A value that is taken.
    struct Value
    {
        const FormatRow &row;
        int element;   ///< the element that has it
        int text = -1; ///< the text node that is taken; -1 for none or for several
        const XmlDocument::Attribute *attribute = nullptr; ///< the attribute; null for a text or a presence
        QVariant result;                                   ///< what the value was converted to
        int object = -1;      ///< the element of the object that the value is for: a column, a view, an item
        int overwritten = -1; ///< the element whose value for the same object and field this one replaces
    };

    /// Why something is skipped.
    enum class Reason : unsigned char {
        UnknownElement,     ///< no element of the format has that name
        NotHere,            ///< an element of the format, but not where the reader looks for it
        NotTheFirst,        ///< only the first of that name counts; the other one is named
        UnknownAttribute,   ///< no attribute of the format's element has that name
        RepeatedAttribute,  ///< a later one of the same name counts
        Text,               ///< a text that no value is taken from
        WhiteSpace,         ///< the same for whitespace
        NotTheFirstText,    ///< a chunk of a text of which only another chunk counts; that one is named
        Ignored,            ///< known to the format, but hosts have no use for its value
        OtherScope,         ///< of a scope or colour scheme that hosts do not use
        AfterTheEnd,        ///< presets after the search for presets has ended
        UnknownType,        ///< a column of unknown data type
        Excluded,           ///< a column with an excluded binding
        WithoutList,        ///< a list item that names no list
        WithoutLegendClass, ///< a caption with no legend class before it
        Replaced,     ///< a view, a default value or a legend that a later one replaces; that one is named
        InPassedOver, ///< inside of a skipped element
        Comment,
        Instruction
    };

    virtual ~ReadingObserver() = default;

    /// Called first. The document outlives the reading.
    virtual void begin(const XmlDocument &document) = 0;

    virtual void take(const Value &value) = 0;

    virtual void fileView(const CProgramView &view, int element) = 0;
    /// @param column null for a column of unknown data type, which keeps its position in the view
    /// @param view the element of its view in the current format; -1 in the legacy format, where columns name
    ///        their view by id
    virtual void fileColumn(const CTemplateColumn *column, const CColumnData &data, int element,
                            int view) = 0;
    virtual void fileListItem(const CListItem &item, const QString &listName, int element, int list) = 0;
    virtual void fileLegendClass(const CTemplateLegendDataItem &legendClass, bool isLateral, int element) = 0;
    /// A default value, which is not inside its column in the current format.
    virtual void fileDefault(const QString &path, const QString &view, const QString &value, int element) = 0;
    /// A list with the class of its items, in the current format.
    virtual void fileList(const QString &name, int classType, int element) = 0;

    /// @param attribute null when the node itself is skipped
    /// @param inFavourOf the node that counts instead; -1 for none
    virtual void passOver(int node, const XmlDocument::Attribute *attribute, Reason reason,
                          int inFavourOf) = 0;
};

} // namespace Tobrix::Templates
