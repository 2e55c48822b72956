#include "Gfx/Common/Alignment.h"

#include <array>
#include <span>
#include <string_view>

namespace Gfx
{

namespace
{

struct SAlignmentWord
{
    std::string_view word;
    EAlignment value;
};

constexpr std::array<SAlignmentWord, 4> k_horizontalWords{
    {{"Left", eaLeft}, {"Centre", eaCentre}, {"Right", eaRight}, {"Justified", eaJustified}}};

constexpr std::array<SAlignmentWord, 3> k_verticalWords{{{"Top", eaTop}, {"Middle", eaMiddle}, {"Bottom", eaBottom}}};

int FirstOccurring(std::span<const SAlignmentWord> a_words, std::string_view a_text)
{
    for (const SAlignmentWord& candidate : a_words)
    {
        if (a_text.find(candidate.word) != std::string_view::npos)
        {
            return candidate.value;
        }
    }
    return 0;
}

} // namespace

int AlignmentFromString(const std::string& a_text)
{
    return FirstOccurring(k_horizontalWords, a_text) | FirstOccurring(k_verticalWords, a_text);
}

} // namespace Gfx
