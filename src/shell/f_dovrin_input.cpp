// FDovrin: the mouse on the table, the keys, and the hover boxes over the
// table's animals.
#include <cmath>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "platform/runtime/msgbox.h"
#include "platform/display/twips.h"
#include "sound/mod_sound_lib.h"
#include "shell/f_dovrin.h"
#include "shell/table_canvas.h"

namespace {

float ToTwips(qreal pixels) { return static_cast<float>(pixels * platform::kTwipsPerPixel); }

}  // namespace

TableCanvas::TableCanvas(FDovrin* form) : QWidget(form), form_(form) {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TableCanvas::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    form_->surface_.Paint(painter, event->rect());
}

void TableCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    pressed_ = true;
    form_->Form_MouseDown(ToTwips(event->position().x()), ToTwips(event->position().y()));
}

// A click is a press and a release of the left button over the bare table.
void TableCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !pressed_) return;
    pressed_ = false;
    if (rect().contains(event->position().toPoint())) form_->Form_Click();
}

void TableCanvas::mouseMoveEvent(QMouseEvent* event) {
    form_->Form_MouseMove(ToTwips(event->position().x()), ToTwips(event->position().y()));
}

void FDovrin::Form_MouseDown(float x, float y) { game_.Form_MouseDown(x, y); }

void FDovrin::Form_Click() { game_.Form_Click(); }

void FDovrin::cmdUser_Click() { game_.cmdUser_Click(); }

// A sound plays when the pointer crosses into one of the boxes, not while it
// rests there. The boxes are tested in order and the first one entered wins,
// so on the pot's edges the pot comes first.
void FDovrin::Form_MouseMove(float x, float y) {
    if (!game_.mbUserTurn) return;  // the last position stays as it was
    const float lastX = static_cast<float>(miLastMouseX);
    const float lastY = static_cast<float>(miLastMouseY);
    const char* key = nullptr;
    if (x <= 1815 && y >= 2505 && y <= 4200 && (lastX > 1815 || lastY < 2505 || lastY > 4200))
        key = "OVERPOT";
    else if (x <= 1815 && y >= 4200 && (lastX > 1815 || lastY < 4200))
        key = "OVERPLAYER1";
    else if (x <= 1815 && y <= 2505 && (lastX > 1815 || lastY > 2505))
        key = "OVERPLAYER2";
    else if (x >= 7800 && y <= 2505 && (lastX < 7800 || lastY > 2505))
        key = "OVERPLAYER3";
    if (key) modSoundLib::PlayAnimalEffect(key);
    miLastMouseX = static_cast<std::int32_t>(std::lround(x));
    miLastMouseY = static_cast<std::int32_t>(std::lround(y));
}

// Only with Ctrl alone; each key flips its option through the menu entry
// that offers the change.
void FDovrin::Form_KeyDown(int keyCode, int shift) {
    if (shift != 2) return;
    switch (keyCode) {
        case 65: mnuOption_Click(modGlobal::gbAnimalsOn ? 1 : 0); break;
        case 77: mnuOption_Click(MusicEnabled() ? 4 : 3); break;
        case 83: mnuOption_Click(modGlobal::gbSoundOn ? 6 : 5); break;
        default: break;
    }
}

// The question stands on Escape alone; it doesn't look whose turn it is.
void FDovrin::Form_KeyPress(int keyAscii) {
    if (keyAscii != 27) return;
    const int answer = platform::MsgBox("Are you sure you wish to exit Dovrin?",
                                        platform::kYesNo | platform::kQuestion,
                                        "The Game of Dovrin");
    if (answer == platform::kAnswerYes) mnuFile_Click(1);
}

// The form sees the keys before its controls, wherever the focus lies.
bool FDovrin::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType() ||
        static_cast<QWidget*>(watched)->window() != this)
        return QMainWindow::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    int shift = 0;
    if (key->modifiers() & Qt::ShiftModifier) shift |= 1;
    if (key->modifiers() & Qt::ControlModifier) shift |= 2;
    if (key->modifiers() & Qt::AltModifier) shift |= 4;
    if (shift == 2 && (key->key() == Qt::Key_A || key->key() == Qt::Key_M ||
                       key->key() == Qt::Key_S)) {
        Form_KeyDown(key->key(), shift);
        return true;
    }
    if (key->key() == Qt::Key_Escape && shift == 0) {
        Form_KeyPress(27);
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}
