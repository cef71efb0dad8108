#pragma once

namespace Tobrix::Templates {

/// The two formats of template files.
enum class TemplateFormat {
    Legacy, ///< Sections with short codes, such as SYSCOL.
    Current ///< Views that contain their columns.
};

} // namespace Tobrix::Templates
