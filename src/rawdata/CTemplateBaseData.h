#pragma once

#include "TobrixTemplatesExport.h"

#include <QString>

namespace Tobrix::Templates {

/// The header of a template as it was read. Texts that are missing in the file are empty.
///
/// The record may grow at its end in a minor version: code that makes, copies or embeds one is compiled with
/// the headers of the library that it runs with. Derive nothing from it.
struct TOBRIX_TEMPLATES_EXPORT CTemplateBaseData
{
    /// An empty header.
    CTemplateBaseData();

    /// Empties the header for the next file, except defaultSecClassName, defaultSecColorField and sortOrder,
    /// which keep their values until a file sets them.
    void clear();

    QString uniqueId;             ///< Identity of the template.
    QString catalogRef;           ///< Catalogue that it refers to.
    QString catalogProfileRef;    ///< Template that it is based on.
    QString key;                  ///< Name of the template.
    QString type;                 ///< Type of the template.
    QString description;          ///< Description for users.
    QString version;              ///< Version of the template.
    QString unit;                 ///< System of units, as its unit of length.
    QString listNamePrefix;       ///< Prefix of the names of its value lists.
    QString defaultSecClassName;  ///< Classification that sections show at first.
    QString defaultSecColorField; ///< Field by which sections are coloured at first.
    int sortOrder = -1;           ///< Position among templates.
    bool isSystem = false;        ///< Whether it came with the system.
    bool isEditable = false;      ///< Whether users may edit it.
    bool isUpdatable = false;     ///< Whether it may be updated.
};

} // namespace Tobrix::Templates
