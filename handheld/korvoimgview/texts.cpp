#include "handheld/korvoimgview/texts.h"

#include <iterator>

namespace viewer {
namespace {

// One row a text, one column a language.
constexpr const wchar_t* kTexts[][handheld::kLanguages] = {
    // pictures: the title when nothing is shown
    {L"Pictures", L"照片", L"相片", L"Bilder", L"Photos", L"Foto", L"Fotos", L"Fotos", L"사진"},
    // noPictures
    {L"There are no pictures yet.", L"还没有照片。", L"尚無相片。", L"Es gibt noch keine Bilder.",
     L"Il n'y a pas encore de photos.", L"Non ci sono ancora foto.", L"Ainda não há fotos.",
     L"Aún no hay fotos.", L"아직 사진이 없습니다."},
    // missing
    {L"This file no longer exists.", L"此文件已不存在。", L"此檔案已不存在。",
     L"Diese Datei ist nicht mehr vorhanden.", L"Ce fichier n'existe plus.", L"Questo file non esiste più.",
     L"Este arquivo não existe mais.", L"Este archivo ya no existe.", L"이 파일은 더 이상 없습니다."},
    // damagedPicture
    {L"This picture is damaged and cannot be shown.", L"此照片已损坏，无法显示。",
     L"此相片已損壞，無法顯示。", L"Dieses Bild ist beschädigt und kann nicht gezeigt werden.",
     L"Cette photo est endommagée et ne peut pas être affichée.",
     L"Questa foto è danneggiata e non può essere mostrata.",
     L"Esta foto está danificada e não pode ser exibida.", L"Esta foto está dañada y no se puede mostrar.",
     L"이 사진은 손상되어 표시할 수 없습니다."},
    // tooLarge
    {L"This file is too large to be shown.", L"此文件太大，无法显示。", L"此檔案太大，無法顯示。",
     L"Diese Datei ist zu groß und kann nicht gezeigt werden.",
     L"Ce fichier est trop grand pour être affiché.", L"Questo file è troppo grande per essere mostrato.",
     L"Este arquivo é grande demais para ser exibido.", L"Este archivo es demasiado grande para mostrarlo.",
     L"이 파일은 너무 커서 표시할 수 없습니다."},
    // damagedMovie
    {L"This movie is damaged or of an unknown kind and cannot be played.",
     L"此录像已损坏或格式不明，无法播放。", L"此錄影已損壞或格式不明，無法播放。",
     L"Dieses Video ist beschädigt oder von unbekannter Art und kann nicht abgespielt werden.",
     L"Cette vidéo est endommagée ou d'un type inconnu et ne peut pas être lue.",
     L"Questo video è danneggiato o di tipo sconosciuto e non può essere riprodotto.",
     L"Este vídeo está danificado ou é de tipo desconhecido e não pode ser reproduzido.",
     L"Este vídeo está dañado o es de un tipo desconocido y no se puede reproducir.",
     L"이 동영상은 손상되었거나 알 수 없는 형식이어서 재생할 수 없습니다."},
    // noCamera
    {L"The camera program cannot be started.", L"无法启动相机程序。", L"無法啟動相機程式。",
     L"Das Kameraprogramm lässt sich nicht starten.", L"L'application photo ne peut pas démarrer.",
     L"Impossibile avviare il programma fotocamera.", L"Não foi possível iniciar o programa da câmera.",
     L"No se puede iniciar el programa de la cámara.", L"카메라 프로그램을 시작할 수 없습니다."},
};
static_assert(std::size(kTexts) == static_cast<size_t>(Text::noCamera) + 1);

}  // namespace

const wchar_t* TextFor(Text text, handheld::Language language) {
    return kTexts[static_cast<int>(text)][static_cast<int>(language)];
}

}  // namespace viewer
