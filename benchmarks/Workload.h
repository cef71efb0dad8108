#pragma once

#include "GeneratedTemplate.h"

#include "model/CCatalogTemplate.h"

#include <QString>

#include <memory>

namespace Tobrix::Benchmarks {

/// Loads a template as a host does. Ends the program when that fails.
std::unique_ptr<Templates::CCatalogTemplate> load(const QString &fileName);

/// The bare parse by Qt's parser of the format, including the deletion of the document.
void parseBare(const QString &fileName, Format format);

} // namespace Tobrix::Benchmarks
