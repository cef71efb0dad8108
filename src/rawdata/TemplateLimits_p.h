#pragma once

namespace Tobrix::Templates::Limits {

// Limits of a template. A file over one of them is not read, since it could block the host's process. Real
// templates have less than 50,000 columns.

/// Columns of all views. In nested views a column counts once for each.
inline constexpr int columns = 250'000;

/// Items of all value lists. In nested lists an item counts once for each.
inline constexpr int listItems = 250'000;

/// Views of a template. They are kept in a hash by id, and a file can choose ids that collide there: the time
/// for that grows with the square of their number.
inline constexpr int views = 10'000;

/// Legend classes of both legends. In nested scopes a legend class counts once for each.
inline constexpr int legendClasses = 100'000;

} // namespace Tobrix::Templates::Limits
