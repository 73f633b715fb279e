// Forms that unload themselves as they activate.
#pragma once

#include <QDialog>
#include <QTimer>

// Shows a form modally that is to unload itself when it activates; true when
// it did so. A guard closes it after three seconds if it doesn't, so that a
// failing test ends; a form that passes returns long before.
inline bool ClosesByItself(QDialog& form) {
    bool closedByItself = true;
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, &form, [&] {
        closedByItself = false;
        form.close();
    });
    guard.start(3000);
    form.exec();
    return closedByItself;
}
