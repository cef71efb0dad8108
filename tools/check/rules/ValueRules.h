#pragma once

namespace Tobrix::Tools {

class CheckedFile;
class Findings;

// Rules about values of any meaning: how a reader converts them.

void checkNumbers(const CheckedFile &file, Findings &findings);
void checkNumberRanges(const CheckedFile &file, Findings &findings);
void checkFractions(const CheckedFile &file, Findings &findings);
void checkFlags(const CheckedFile &file, Findings &findings);
void checkSpaceAround(const CheckedFile &file, Findings &findings);
void checkCapturedSpace(const CheckedFile &file, Findings &findings);
void checkIgnoredTexts(const CheckedFile &file, Findings &findings);
void checkUnreadTexts(const CheckedFile &file, Findings &findings);

} // namespace Tobrix::Tools
