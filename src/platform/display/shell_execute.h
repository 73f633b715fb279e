// ShellExecuteA: hands a document or an address to the user's own program
// for it (the browser for a page), as the desktop does when it is opened.
#pragma once

#include <functional>
#include <string>

class QUrl;
class QWidget;

namespace platform {

// operation "open" only; parameters are unused. A file that isn't an
// address with a scheme is taken relative to directory, a path of the old
// platform. Returns above 32 when the desktop took the document, 2 when it
// didn't.
int ShellExecuteA(QWidget* owner, const std::string& operation, const std::string& file,
                  const std::string& parameters, const std::string& directory, int showCommand);

// Tests see what would be opened instead of starting a browser; an empty
// function restores the desktop.
void SetDocumentOpener(std::function<bool(const QUrl&)> opener);

}  // namespace platform
