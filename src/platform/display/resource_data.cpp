#include "platform/display/resource_data.h"

#include <QFile>

namespace platform {

std::vector<std::uint8_t> LoadResData(int id, const std::string& type) {
    if (type != "WAVE") return {};
    QFile file(QStringLiteral(":/res/wave/%1.wav").arg(id));
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = file.readAll();
    return {bytes.begin(), bytes.end()};
}

}  // namespace platform
