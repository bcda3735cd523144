#include "handheld/peghelp/texts.h"

#include <iterator>

namespace help {
namespace {

// One row a text, one column a language.
constexpr const wchar_t* kTexts[][handheld::kLanguages] = {
    // help: the title without a page
    {L"Help", L"帮助", L"說明", L"Hilfe", L"Aide", L"Guida", L"Ajuda", L"Ayuda", L"도움말"},
    // missing: the name of the page follows in a line of its own
    {L"This help page cannot be found:", L"找不到此帮助页面：", L"找不到此說明頁面：",
     L"Diese Hilfeseite wurde nicht gefunden:", L"Cette page d'aide est introuvable :",
     L"Impossibile trovare questa pagina della guida:", L"Esta página de ajuda não foi encontrada:",
     L"No se encuentra esta página de ayuda:", L"이 도움말 페이지를 찾을 수 없습니다:"},
};
static_assert(std::size(kTexts) == static_cast<size_t>(Text::missing) + 1);

}  // namespace

const wchar_t* TextFor(Text text, handheld::Language language) {
    return kTexts[static_cast<int>(text)][static_cast<int>(language)];
}

}  // namespace help
