#pragma once

#include <QString>

namespace Tobrix::Templates {

/// The result of reading a document into a raw record.
struct ReadingResult
{
    enum Kind : unsigned char {
        Complete,        ///< the whole document was read
        Broken,          ///< the document has a fault: see XmlDocument::fault()
        OverLimit,       ///< more views, columns, list items or legend classes than a template may have
        ItemWithoutList, ///< a list item names no list
        ColumnNotBuilt   ///< a column that the builder does not build
    };

    Kind kind = Complete;
    int node = -1; ///< the element that the reading stopped at, or the first one over a limit; -1 for none
    QString explanation; ///< the exceeded limit, such as "more than 10 views"

    explicit operator bool() const { return kind == Complete; }
};

} // namespace Tobrix::Templates
