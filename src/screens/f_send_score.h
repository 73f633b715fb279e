// FSendScore: how to send a top score to the maker, and the button that
// copies the database file to the outbox folder for mailing.
#pragma once

#include <array>

#include "platform/display/art_dialog.h"

class QLabel;
class QPushButton;

namespace platform {
class ClickLabel;
}

class FSendScore : public platform::ArtDialog {
    Q_OBJECT
public:
    explicit FSendScore(QWidget* parent = nullptr);

    // Index 4 is no label of the array: lblOpenWebPage stands in its row.
    std::array<QLabel*, 13> lblSendScore{};
    platform::ClickLabel* lblOpenWebPage = nullptr;
    QPushButton* cmdCopyScore = nullptr;
    QPushButton* cmdSendScore = nullptr;

    void cmdCopyScore_Click();
    void OpenWebPage();

private:
    void Form_Load();
};
