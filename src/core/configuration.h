// The configuration file config.qmz: 53 lines without keys, where the number of a line is its
// meaning. Reader and writer use the same table. The live fields are the settings: there is no
// second copy.
#pragma once

namespace varek {

/// Reads the file into the live state and the link choice. A missing file is reported in a message
/// box, and the defaults are taken. On a first start (the port search still to come) the language
/// follows the system's. Throws RuntimeError 62 when the file ends early and 6 when a number does
/// not fit; the fields of the lines before keep what was read.
void ReadConfig();

/// True when the file that was read last has more lines than there are settings: a text that was
/// split over two lines has moved the settings behind it.
bool ConfigWasTooLong();

/// Writes the whole file anew, each setting on one line. Throws RuntimeError 75 when it can't be
/// written; the old file then stays as it was.
void WriteConfig();

}  // namespace varek
