#pragma once

#include "tools/check/model/TemplateModel.h"

#include <QMap>

namespace Tobrix::Tools {

// Code shared by the models of both formats.

/// Applies what the builder does to a column: its fixed default and visibility, by the host's table types.
void applyFixedValues(ColumnModel &column);

/// Adds the values that the column's type uses, for the rules about values.
void keepNumbersOf(const ColumnModel &column, const QString &fromName, const QString &toName,
                   const QString &stepName, std::vector<ReadValue> &values);

/// The lists of a template under construction, in the order of the record.
using ListsByName = QMap<QString, ListModel>;

std::vector<ListModel> listsOf(const ListsByName &lists);

} // namespace Tobrix::Tools
