#pragma once

#include <QList>

#include <algorithm>

namespace Tobrix::Templates {

/// Sorts columns or list items by their sortOrder(), ascending; equal ones end in no defined order. Null
/// entries (columns of unknown data type in the current format) go to the end.
template <typename T>
void sortBySortOrder(QList<T *> &objects)
{
    const auto firstNull =
        std::partition(objects.begin(), objects.end(), [](const T *object) { return object != nullptr; });
    std::sort(objects.begin(), firstNull,
              [](const T *a, const T *b) { return a->sortOrder() < b->sortOrder(); });
}

} // namespace Tobrix::Templates
