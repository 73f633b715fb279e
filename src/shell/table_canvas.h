// The client area of the main form: it shows the form's surface and passes
// the mouse on to the form's handlers, in twips.
#pragma once

#include <QWidget>

class FDovrin;

class TableCanvas : public QWidget {
    Q_OBJECT
public:
    explicit TableCanvas(FDovrin* form);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    FDovrin* form_;
    bool pressed_ = false;
};
