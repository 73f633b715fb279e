#include "platform/display/shell_execute.h"

#include <QDesktopServices>
#include <QDir>
#include <QUrl>

#include "platform/runtime/file_system.h"

namespace platform {

namespace {

constexpr int kOpened = 42;
constexpr int kNotOpened = 2;

std::function<bool(const QUrl&)>& DocumentOpener() {
    static std::function<bool(const QUrl&)> opener;
    return opener;
}

}  // namespace

int ShellExecuteA(QWidget*, const std::string& operation, const std::string& file, const std::string&,
                  const std::string& directory, int) {
    if (operation != "open") return kNotOpened;
    const QString name = QString::fromStdString(file);
    QUrl url(name);
    if (url.scheme().size() < 2) {  // a path, not an address (one letter would be a drive)
        const QDir folder(QString::fromStdString(OldPlatformPath(directory)));
        url = QUrl::fromLocalFile(folder.absoluteFilePath(QString::fromStdString(OldPlatformPath(file))));
    }
    const auto& opener = DocumentOpener();
    const bool opened = opener ? opener(url) : QDesktopServices::openUrl(url);
    return opened ? kOpened : kNotOpened;
}

void SetDocumentOpener(std::function<bool(const QUrl&)> opener) { DocumentOpener() = std::move(opener); }

}  // namespace platform
