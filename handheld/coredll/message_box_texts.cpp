#include "handheld/coredll/message_box_texts.h"

namespace handheld {
namespace {

struct Captions {
    WORD language;
    WORD sublanguage;         // SUBLANG_NEUTRAL: any
    const wchar_t* texts[7];  // IDOK 1 .. IDNO 7
};
// The first row serves every language without one of its own.
constexpr Captions kCaptions[] = {
    {LANG_ENGLISH, SUBLANG_NEUTRAL, {L"OK", L"Cancel", L"Abort", L"Retry", L"Ignore", L"Yes", L"No"}},
    {LANG_CHINESE, SUBLANG_CHINESE_TRADITIONAL, {L"確定", L"取消", L"中止", L"重試", L"略過", L"是", L"否"}},
    {LANG_CHINESE, SUBLANG_NEUTRAL, {L"确定", L"取消", L"中止", L"重试", L"忽略", L"是", L"否"}},
    {LANG_GERMAN,
     SUBLANG_NEUTRAL,
     {L"OK", L"Abbrechen", L"Beenden", L"Wiederholen", L"Ignorieren", L"Ja", L"Nein"}},
    {LANG_FRENCH,
     SUBLANG_NEUTRAL,
     {L"OK", L"Annuler", L"Abandonner", L"Réessayer", L"Ignorer", L"Oui", L"Non"}},
    {LANG_ITALIAN, SUBLANG_NEUTRAL, {L"OK", L"Annulla", L"Interrompi", L"Riprova", L"Ignora", L"Sì", L"No"}},
    {LANG_PORTUGUESE,
     SUBLANG_NEUTRAL,
     {L"OK", L"Cancelar", L"Anular", L"Repetir", L"Ignorar", L"Sim", L"Não"}},
    {LANG_SPANISH,
     SUBLANG_NEUTRAL,
     {L"Aceptar", L"Cancelar", L"Anular", L"Reintentar", L"Omitir", L"Sí", L"No"}},
    {LANG_KOREAN, SUBLANG_NEUTRAL, {L"확인", L"취소", L"중단", L"다시 시도", L"무시", L"예", L"아니요"}},
};

}  // namespace

const wchar_t* ButtonCaption(int button, LCID locale) {
    const LANGID language = LANGIDFROMLCID(locale);
    const Captions* found = kCaptions;
    for (const Captions& row : kCaptions) {
        if (PRIMARYLANGID(language) != row.language ||
            (row.sublanguage != SUBLANG_NEUTRAL && SUBLANGID(language) != row.sublanguage))
            continue;
        found = &row;
        break;
    }
    return found->texts[button - IDOK];
}

}  // namespace handheld
