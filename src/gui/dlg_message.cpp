#include "gui/dlg_message.h"

#include <QDialog>
#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>

#include "gui/i_gui_window.h"

namespace kestrel2::win {

namespace {

constexpr int kStartWidth = 360;
constexpr int kStartHeight = 140;
constexpr int kButtonWidth = 75;
constexpr int kButtonHeight = 23;
constexpr int kButtonGap = 8;

QString ToQt(const aurel::DualString& text) {
    return QString::fromUtf8(text.Utf8());
}

}  // namespace

Growth GrowToFit(int width, int height, const std::function<bool(int boxWidth, int boxHeight)>& fits) {
    Growth growth;
    double step = 20.0;
    const auto box = [&] {
        return fits(width + growth.width - 2 * DlgMessage::kMargin,
                    height + growth.height - DlgMessage::kMargin - DlgMessage::kButtonRow);
    };
    while (!box()) {
        step += step / 2.0;
        growth.width += static_cast<int>(step);
        growth.height += static_cast<int>(step * 0.75);
    }
    return growth;
}

struct DlgMessage::Impl {
    QDialog dialog;
    QLabel* label = nullptr;
    Font font{"Arial", 14, Font::kNormal};
    struct Button {
        aurel::DualString text;
        int result;
        QPushButton* widget = nullptr;
        int controlId = 0;
    };
    std::vector<Button> buttons;
    int result = -1;
    bool laidOut = false;
};

DlgMessage::DlgMessage(IGuiWindow* parent, const aurel::DualString& title, const aurel::DualString& text)
    : impl_(std::make_unique<Impl>()) {
    impl_->dialog.setParent(DialogOwner(parent), Qt::Dialog);
    impl_->dialog.setWindowTitle(ToQt(title));
    impl_->label = new QLabel(ToQt(text), &impl_->dialog);
    impl_->label->setWordWrap(true);
    impl_->label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    impl_->dialog.resize(kStartWidth, kStartHeight);
}

DlgMessage::~DlgMessage() = default;

void DlgMessage::AddButton(const aurel::DualString& text, int result) {
    impl_->buttons.push_back({text, result});
}

void DlgMessage::SetFont(const Font& font) {
    impl_->font = font;
}

void DlgMessage::Layout() {
    if (impl_->laidOut) {
        return;
    }
    impl_->laidOut = true;
    QFont qtFont(QString::fromStdString(impl_->font.face));
    qtFont.setPixelSize(impl_->font.size);
    qtFont.setBold(impl_->font.style == Font::kBold);
    impl_->dialog.setFont(qtFont);
    const QFontMetrics metrics(qtFont);
    const QString text = impl_->label->text();
    const Growth growth = GrowToFit(kStartWidth, kStartHeight, [&](int boxWidth, int boxHeight) {
        const QRect needed = metrics.boundingRect(QRect(0, 0, boxWidth, 1 << 20), Qt::TextWordWrap, text);
        return needed.width() <= boxWidth && needed.height() <= boxHeight;
    });
    const int width = kStartWidth + growth.width;
    const int height = kStartHeight + growth.height;
    impl_->dialog.setFixedSize(width, height);
    impl_->label->setGeometry(kMargin, kMargin, width - 2 * kMargin, height - kMargin - kButtonRow);

    int right = width - kMargin;
    const int top = height - kButtonRow + (kButtonRow - kButtonHeight) / 2;
    for (std::size_t i = 0; i < impl_->buttons.size(); ++i) {
        Impl::Button& button = impl_->buttons[i];
        button.widget = new QPushButton(ToQt(button.text), &impl_->dialog);
        button.controlId = kFirstButtonId + static_cast<int>(i);
        button.widget->setGeometry(right - kButtonWidth, top, kButtonWidth, kButtonHeight);
        button.widget->setDefault(i == 0);
        button.widget->setAutoDefault(false);
        const int result = button.result;
        QObject::connect(button.widget, &QPushButton::clicked, [this, result] {
            impl_->result = result;
            impl_->dialog.accept();
        });
        right -= kButtonWidth + kButtonGap;
    }
}

int DlgMessage::DoModal() {
    Layout();
    impl_->result = -1;
    impl_->dialog.exec();
    return impl_->result;
}

int DlgMessage::Width() const {
    return impl_->dialog.width();
}

int DlgMessage::Height() const {
    return impl_->dialog.height();
}

std::vector<DlgMessage::ButtonPlace> DlgMessage::Buttons() const {
    std::vector<ButtonPlace> places;
    for (const Impl::Button& button : impl_->buttons) {
        if (button.widget) {
            const QRect r = button.widget->geometry();
            places.push_back(
                {button.controlId, r.x(), r.y(), r.width(), r.height(), button.widget->isDefault()});
        }
    }
    return places;
}

}  // namespace kestrel2::win
