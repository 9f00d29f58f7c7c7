// The numbered texts of the program in the present language, and the named arrays that are filled
// from them. The texts themselves lie in the table LangData; their numbers are the same in every
// language. They are named, and listed with their uses, in assets/language/texts.tsv.
#pragma once

#include <array>
#include <string>

#include "texts/text_numbers.h"

namespace varek {

/// Texts 0 to 314 are read; the rest of LangText stays empty.
constexpr int kTextCount = 315;

extern std::array<std::string, 501> LangText;

extern std::array<std::string, 12> EventText;        ///< by event number less one
extern std::array<std::string, 9> StageText;         ///< by status code
extern std::array<std::string, 9> ActionName;        ///< schedule actions, the cancel mark last
extern std::array<std::string, 4> DeleteButtonText;  ///< schedule delete buttons
extern std::array<std::string, 18> SettingsMessage;  ///< messages of the settings dialog

/// Fills LangText with the column of `languageIndex` (0 to 2), then the shared arrays and the
/// controller. An error becomes a line of the error list: what can't be read stays as it was, empty
/// at start.
void Loadlanguage(int languageIndex);

/// Fills the shared arrays from LangText, and for a view number from 1 to 17 puts that window's
/// texts on its controls, if it is loaded.
void language(int view);

}  // namespace varek
