// The fonts and the locale of a test of what windows look like, in place of the machine's.
#pragma once

namespace varek::test {

/// From here on the toolkit finds two families only, which scripts/packages installs: one without
/// Chinese letters, and one that has them. VAREK_TEST_FONTS=tall makes the lines of the second
/// three tenths higher. To be called before the toolkit starts; false when a family is missing.
bool BringFonts();

}  // namespace varek::test
