#pragma once

namespace Tobrix::Tools {

class CheckedFile;
class Findings;

// Rules about default values: which column they apply to, and with which result.

void checkUnusedDefaults(const CheckedFile &file, Findings &findings);
void checkDefaultViews(const CheckedFile &file, Findings &findings);
void checkUnreachableDefaults(const CheckedFile &file, Findings &findings);
void checkOverwrittenDefaults(const CheckedFile &file, Findings &findings);
void checkDefaultNumbers(const CheckedFile &file, Findings &findings);
void checkDefaultRanges(const CheckedFile &file, Findings &findings);
void checkDefaultLengths(const CheckedFile &file, Findings &findings);
void checkIgnoredDefaults(const CheckedFile &file, Findings &findings);
void checkDefaultsInLists(const CheckedFile &file, Findings &findings);

} // namespace Tobrix::Tools
