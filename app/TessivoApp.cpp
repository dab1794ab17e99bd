#include "app/model/AppModel.h"

#include <QApplication>
#include <cstdio>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName("Tessivo");
    auto platform = tessivo::makePlatform();
    tessivo::AppModel model(*platform);
    std::puts(model.makeReport().title().c_str());
}
