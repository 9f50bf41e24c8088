#include "platform/desktop/system_scheme.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>
#endif

using namespace Qt::StringLiterals;

namespace desktop {

#ifdef _WIN32

// The toolkit's own palette doesn't follow this choice.
bool System_Is_Dark() {
    DWORD light = 1;
    DWORD size = sizeof light;
    RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                 L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
    return light == 0;
}

#else

// Some desktops give the toolkit no palette, but tell their choice to whoever asks.
static bool Portal_Prefers_Dark() {
    constexpr int patience_ms = 100; // the program starts meanwhile
    constexpr uint dark = 1;
    QDBusMessage question = QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s,
                                                           u"/org/freedesktop/portal/desktop"_s,
                                                           u"org.freedesktop.portal.Settings"_s, u"Read"_s);
    question << u"org.freedesktop.appearance"_s << u"color-scheme"_s;
    question.setAutoStartService(false);
    const QDBusMessage answer = QDBusConnection::sessionBus().call(question, QDBus::Block, patience_ms);
    QVariant value = answer.arguments().value(0);
    while (value.canConvert<QDBusVariant>()) // one within another
        value = value.value<QDBusVariant>().variant();
    return answer.type() == QDBusMessage::ReplyMessage && value.toUInt() == dark;
}

bool System_Is_Dark() {
    const QPalette palette = QGuiApplication::palette(); // as the desktop gave it
    return Portal_Prefers_Dark() ||
           palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

#endif

} // namespace desktop
