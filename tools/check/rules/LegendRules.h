#pragma once

namespace Tobrix::Tools {

class CheckedFile;
class Findings;

// Rules about the classification legends and the colours that a template starts with.

void checkLegendScopes(const CheckedFile &file, Findings &findings);
void checkReversedLegendClasses(const CheckedFile &file, Findings &findings);
void checkOverlaps(const CheckedFile &file, Findings &findings);
void checkGaps(const CheckedFile &file, Findings &findings);
void checkColours(const CheckedFile &file, Findings &findings);
void checkLostLegends(const CheckedFile &file, Findings &findings);
void checkPresets(const CheckedFile &file, Findings &findings);

} // namespace Tobrix::Tools
