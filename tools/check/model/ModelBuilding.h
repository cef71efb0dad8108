#pragma once

#include "tools/check/model/TemplateModel.h"

#include <QMap>

namespace Tobrix::Tools {

// What both formats' models are made with.

/// Says what the builder makes of a column that is read: its fixed default and visibility, by the host's
/// types of tables.
void applyFixedValues(ColumnModel &column);

/// Keeps the values of a column that its type has a use for, for the rules about values.
void keepNumbersOf(const ColumnModel &column, const QString &fromName, const QString &toName,
                   const QString &stepName, std::vector<ReadValue> &values);

/// The lists of a template while they are gathered, in the order in which the record keeps them.
using ListsByName = QMap<QString, ListModel>;

std::vector<ListModel> listsOf(const ListsByName &lists);

} // namespace Tobrix::Tools
