#include "platform/desktop/played_sound.h"

#ifdef _WIN32
#include <windows.h>

#include <mmsystem.h>
#else
#include <QEventLoop>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>
#endif

namespace desktop {

#ifdef _WIN32

void Play_To_Its_End(const QString& path) {
    PlaySoundW(reinterpret_cast<const wchar_t*>(path.utf16()), nullptr,
               SND_FILENAME | SND_SYNC | SND_NODEFAULT);
}

#else

// Without a sound device the toolkit reports a sound as playing for ever.
constexpr int Longest_Click_Ms = 500;

void Play_To_Its_End(const QString& path) {
    QSoundEffect effect;
    effect.setSource(QUrl::fromLocalFile(path));
    QEventLoop until_the_end;
    QObject::connect(&effect, &QSoundEffect::playingChanged, &until_the_end, [&] {
        if (!effect.isPlaying()) until_the_end.quit();
    });
    QTimer::singleShot(Longest_Click_Ms, &until_the_end, &QEventLoop::quit);
    effect.play();
    until_the_end.exec(QEventLoop::ExcludeUserInputEvents);
}

#endif

} // namespace desktop
