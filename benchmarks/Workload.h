#pragma once

#include "GeneratedTemplate.h"

#include "model/CCatalogTemplate.h"

#include <QString>

#include <memory>

namespace Tobrix::Benchmarks {

/// Loads a template as a host does. Ends the program when that fails.
std::unique_ptr<Templates::CCatalogTemplate> load(const QString &fileName);

/// What loading cannot do without: the bare parse that the format prescribes, with nothing made of it.
void parseBare(const QString &fileName, Format format);

} // namespace Tobrix::Benchmarks
