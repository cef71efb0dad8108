#pragma once

namespace Tobrix::Tools {

class CheckedFile;
class Findings;

// Rules about value lists.

void checkUnknownLists(const CheckedFile &file, Findings &findings);
void checkUnusedLists(const CheckedFile &file, Findings &findings);
void checkDuplicateItems(const CheckedFile &file, Findings &findings);
void checkItemLengths(const CheckedFile &file, Findings &findings);
void checkListOrder(const CheckedFile &file, Findings &findings);
void checkItemsWithoutList(const CheckedFile &file, Findings &findings);
void checkListNames(const CheckedFile &file, Findings &findings);

} // namespace Tobrix::Tools
