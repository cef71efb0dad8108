#pragma once

#include <QString>

namespace Tobrix::Templates {

/// How the reading of a document into a raw record ended.
struct ReadingResult
{
    enum Kind : unsigned char {
        Complete,        ///< the whole document was read
        Broken,          ///< the document has a fault, which was met: see XmlDocument::fault()
        OverLimit,       ///< more views, columns, list items or legend classes than a template may have
        ItemWithoutList, ///< a list item that names no list
        ColumnNotBuilt   ///< a column that the builder does not build
    };

    Kind kind = Complete;
    int node = -1;       ///< the element that the reading stopped at, or that is one too many; -1 for none
    QString explanation; ///< what there is too much of, as "more than 10 views"

    explicit operator bool() const { return kind == Complete; }
};

} // namespace Tobrix::Templates
