#pragma once

#include <QList>

#include <algorithm>

namespace Tobrix::Templates {

/// Sorts columns or list items by their sortOrder(), ascending; equals end in no defined order. Null entries,
/// as a view of the current format has them for columns of unknown data type, go to the end.
template <typename T>
void sortBySortOrder(QList<T *> &objects)
{
    const auto firstNull =
        std::partition(objects.begin(), objects.end(), [](const T *object) { return object != nullptr; });
    std::sort(objects.begin(), firstNull,
              [](const T *a, const T *b) { return a->sortOrder() < b->sortOrder(); });
}

} // namespace Tobrix::Templates
