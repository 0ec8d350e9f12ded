// The application that the desktop's tests share: two screens on paper, side by side, and no user's settings. On Windows it has the screen
// that is there, since Qt draws on none of paper, and Qt's own file dialogs in place of the system's, which no test can look into.
#include "desktop/Look.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

#ifndef _WIN32
constexpr auto kScreens = R"({"screens": [
    {"name": "left", "x": 0, "y": 0, "width": 2560, "height": 1920, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
    {"name": "right", "x": 2560, "y": 0, "width": 1600, "height": 1200, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
#endif

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir runtime;
    QFile::setPermissions(runtime.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", runtime.path().toUtf8());
#ifdef _WIN32
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
#else
    QFile screens(runtime.filePath(QStringLiteral("screens.json")));
    if (!screens.open(QIODevice::WriteOnly) || screens.write(kScreens) < 0) {
        return 1;
    }
    screens.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
#endif
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    velluto::SetUpLook();
    return RUN_ALL_TESTS();
}
