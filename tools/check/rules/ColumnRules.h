#pragma once

namespace Tobrix::Tools {

class CheckedFile;
class Findings;

// Rules about views and their columns.

void checkColumnTypes(const CheckedFile &file, Findings &findings);
void checkControlTypes(const CheckedFile &file, Findings &findings);
void checkControlFit(const CheckedFile &file, Findings &findings);
void checkViewIds(const CheckedFile &file, Findings &findings);
void checkViewKeys(const CheckedFile &file, Findings &findings);
void checkEmptyViews(const CheckedFile &file, Findings &findings);
void checkDuplicateBindings(const CheckedFile &file, Findings &findings);
void checkBindings(const CheckedFile &file, Findings &findings);
void checkExcludedColumns(const CheckedFile &file, Findings &findings);
void checkAlwaysHidden(const CheckedFile &file, Findings &findings);
void checkForcedDefaults(const CheckedFile &file, Findings &findings);
void checkSortOrders(const CheckedFile &file, Findings &findings);
void checkGroupLevels(const CheckedFile &file, Findings &findings);
void checkEmptyRanges(const CheckedFile &file, Findings &findings);
void checkIgnoredRanges(const CheckedFile &file, Findings &findings);
void checkIgnoredLengths(const CheckedFile &file, Findings &findings);
void checkIgnoredFormats(const CheckedFile &file, Findings &findings);
void checkValueTransfers(const CheckedFile &file, Findings &findings);
void checkColumnViews(const CheckedFile &file, Findings &findings);
void checkMandatoryHidden(const CheckedFile &file, Findings &findings);
void checkMandatoryReadOnly(const CheckedFile &file, Findings &findings);

} // namespace Tobrix::Tools
