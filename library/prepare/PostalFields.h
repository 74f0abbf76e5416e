// What postal services write into the places of their codes: data are checked place by place, so
// that the first wrong character is known, and brought into the form that is encoded.
#pragma once

#include "library/prepare/PreparedData.h"

#include <string_view>

namespace Library {

struct Options;

// Throws Error with BC_E_INVALIDDATA at the first character that is not of its place's set, a
// letter of `places` for each: n digit, z digit or capital, a capital, l capital but C I K M O V,
// x customer information, f 0 to 4, v 1 to 4, c 0 to 9 and A to E, s 0 to 6, any other character
// itself. Places beyond either end are not looked at.
void CheckPlaces(const Data& data, std::string_view places, std::size_t first = 0);

// Normalizers. They throw Error as CheckPlaces does.

// Royal Mail, KIX and Japan Post: blanks removed, letters turned into capitals.
void NormalizePostalLetters(Data& data, const Options& options);
void NormalizeAustraliaPost(Data& data, const Options& options);
// The hyphen between tracking code and routing code removed.
void NormalizeIntelligentMail(Data& data, const Options& options);
// Royal Mail Mailmark of four states, filled up with blanks to 22 or 26 characters.
void NormalizeMailmark(Data& data, const Options& options);
// Royal Mail Mailmark as Data Matrix: with its country in front and 45 characters at least.
void NormalizeMailmarkMatrix(Data& data, const Options& options);

}  // namespace Library
