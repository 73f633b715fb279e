// What the program tells about its maker, in one place: the names, the
// addresses, and the maker's web page, which is the game's own guide lying
// beside the program. All of it is made up: the maker, its author and its
// address are fictional, and the mail addresses lie under a reserved domain.
#pragma once

#include <array>

class QWidget;

namespace screens {

inline constexpr char kMakerName[] = "Oakmere Software";
inline constexpr char kAuthorName[] = "Tobias Quillfeather";
inline constexpr std::array<const char*, 3> kMakerPostalAddress = {
    "12 Lamplighter Row", "Oakmere Hollow", "Nowhere 00000"};
inline constexpr char kScoresMailAddress[] = "topten@oakmere.example";
inline constexpr char kCommentsMailAddress[] = "comments@oakmere.example";
inline constexpr char kMakerWebAddress[] = "guide.html";

// Opens the maker's web page in the user's browser, with owner's window as
// the one that asks; what the desktop answers is ignored.
void OpenWebPage(QWidget& owner);

}  // namespace screens
