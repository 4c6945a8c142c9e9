// The windows' tests run without a screen, in one application.
#include <gmock/gmock.h>

#include "ui/application.h"

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    quillon::ui::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
