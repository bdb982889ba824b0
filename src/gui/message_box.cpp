#include "gui/message_box.h"

#include <QMessageBox>
#include <QPushButton>

#include <map>

#include "gui/i_gui_window.h"
#include "gui/main_window.h"

namespace kestrel2::win {

namespace {

QMessageBox::Icon ToQt(aurel::PromptIcon icon) {
    switch (icon) {
        case aurel::PromptIcon::Information:
            return QMessageBox::Information;
        case aurel::PromptIcon::Question:
            return QMessageBox::Question;
        case aurel::PromptIcon::Warning:
            return QMessageBox::Warning;
        case aurel::PromptIcon::Error:
            return QMessageBox::Critical;
        default:
            return QMessageBox::NoIcon;
    }
}

// The standard buttons of a set, with the answer each gives.
std::map<QMessageBox::StandardButton, int> StandardAnswers(aurel::PromptButtons buttons) {
    switch (buttons) {
        case aurel::PromptButtons::OkCancel:
            return {{QMessageBox::Ok, aurel::kAnswerOk}, {QMessageBox::Cancel, aurel::kAnswerCancel}};
        case aurel::PromptButtons::YesNo:
            return {{QMessageBox::Yes, aurel::kAnswerYes}, {QMessageBox::No, aurel::kAnswerNo}};
        case aurel::PromptButtons::YesNoCancel:
            return {{QMessageBox::Yes, aurel::kAnswerYes},
                    {QMessageBox::No, aurel::kAnswerNo},
                    {QMessageBox::Cancel, aurel::kAnswerCancel}};
        default:
            return {{QMessageBox::Ok, aurel::kAnswerOk}};
    }
}

}  // namespace

void ShowExceptionBox(const char* message, const char* title, bool withOwner) {
    MainWindow* window = withOwner ? GlobalMainWindow() : nullptr;
    QMessageBox::critical(window ? static_cast<QWidget*>(window->NativeWidget()) : nullptr,
                          QString::fromUtf8(title), QString::fromUtf8(message));
}

int MessageBoxPrompt::Ask(const aurel::PromptRequest& request) {
    QMessageBox box(ToQt(request.icon), QString::fromUtf8(request.title.Utf8()),
                    QString::fromUtf8(request.text.Utf8()), QMessageBox::NoButton, DialogOwner(nullptr));
    const int safe = aurel::SafeAnswer(request);
    std::map<QAbstractButton*, int> answers;
    if (request.buttons == aurel::PromptButtons::Custom) {
        for (std::size_t i = 0; i < request.labels.size(); ++i) {
            QAbstractButton* button =
                box.addButton(QString::fromUtf8(request.labels[i].Utf8()), QMessageBox::ActionRole);
            answers[button] = static_cast<int>(i);
        }
    } else {
        for (const auto& [standard, answer] : StandardAnswers(request.buttons)) {
            answers[box.addButton(standard)] = answer;
        }
    }
    for (const auto& [button, answer] : answers) {
        if (answer == safe) {
            box.setEscapeButton(button);
        }
    }
    box.exec();
    const auto chosen = answers.find(box.clickedButton());
    return chosen == answers.end() ? safe : chosen->second;
}

}  // namespace kestrel2::win
