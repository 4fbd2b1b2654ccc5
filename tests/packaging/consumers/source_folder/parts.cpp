// SPDX-License-Identifier: MIT
// A library of the host's own, which the settings of Vemo Widgets must leave alone.
int partOfTheHost()
{
    return 0;
}
