#pragma once

namespace Tobrix::Tools {

class CheckedFile;
class Findings;

// Rules about a document as a whole: whether it is read, and which of its elements are.

void checkWellFormed(const CheckedFile &file, Findings &findings);
void checkLimits(const CheckedFile &file, Findings &findings);
void checkFolder(const CheckedFile &file, Findings &findings);
void checkDocumentType(const CheckedFile &file, Findings &findings);
void checkRepeatedAttributes(const CheckedFile &file, Findings &findings);
void checkEntities(const CheckedFile &file, Findings &findings);
void checkEncoding(const CheckedFile &file, Findings &findings);
void checkRoot(const CheckedFile &file, Findings &findings);
void checkReachability(const CheckedFile &file, Findings &findings);
void checkElementNames(const CheckedFile &file, Findings &findings);
void checkAttributeNames(const CheckedFile &file, Findings &findings);
void checkFirstElements(const CheckedFile &file, Findings &findings);
void checkRepeatedElements(const CheckedFile &file, Findings &findings);
void checkNesting(const CheckedFile &file, Findings &findings);
void checkIds(const CheckedFile &file, Findings &findings);
void checkKeys(const CheckedFile &file, Findings &findings);
void checkUnitSystem(const CheckedFile &file, Findings &findings);
void checkType(const CheckedFile &file, Findings &findings);

} // namespace Tobrix::Tools
