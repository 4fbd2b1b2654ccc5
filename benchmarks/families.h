// SPDX-License-Identifier: MIT
#pragma once

namespace bench {

class Cases;

// Each family adds its cases, in the file <family>_bench.cpp.
void buttonCases(Cases &cases);
void controlsCases(Cases &cases);
void dateTimeCases(Cases &cases);
void dateTimePeersCases(Cases &cases); ///< only if the peers are installed
void helpCases(Cases &cases);
void imagesCases(Cases &cases);
void messageCases(Cases &cases);
void stockCases(Cases &cases);
void styleCases(Cases &cases);
void themeCases(Cases &cases);
void viewsCases(Cases &cases);

} // namespace bench
