// The application that the desktop's tests share: no screen, no user's settings.
#include "desktop/Look.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    const QTemporaryDir runtime;
    QFile::setPermissions(runtime.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", runtime.path().toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    velluto::SetUpLook();
    return RUN_ALL_TESTS();
}
