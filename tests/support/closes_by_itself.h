// Forms that unload themselves as they activate.
#pragma once

#include <QDialog>
#include <QTimer>

// Shows a form that is to unload itself when it activates; true when it did
// so before a guard of three seconds closed it.
inline bool ClosesByItself(QDialog& form) {
    bool closedByItself = true;
    QTimer::singleShot(3000, &form, [&] {
        closedByItself = false;
        form.close();
    });
    form.exec();
    return closedByItself;
}
