#include "gui/gui_toolbar.h"

#include <QAction>
#include <QSignalBlocker>
#include <QToolBar>

#include "gui/icons.h"
#include "settings/lang.h"

namespace kestrel2::win {

namespace {

constexpr int kSeparator = -1;

QToolBar* Bar(const Window& window) {
    return qobject_cast<QToolBar*>(window.handle());
}

}  // namespace

void GuiToolbar::AddButton(ToolButton button) {
    Entry& entry = entries_.emplace_back();
    entry.button = std::move(button);
    entry.group = group_;
    Build(entry);
}

void GuiToolbar::AddSeparator() {
    ++group_;
    Entry& entry = entries_.emplace_back();
    entry.button.id = kSeparator;
    entry.group = group_;
    Build(entry);
}

GuiToolbar::Entry* GuiToolbar::Find(int id) {
    for (Entry& entry : entries_) {
        if (entry.button.id == id) {
            return &entry;
        }
    }
    return nullptr;
}

const GuiToolbar::Entry* GuiToolbar::Find(int id) const {
    return const_cast<GuiToolbar*>(this)->Find(id);
}

void GuiToolbar::SetButtonState(int id, bool on) {
    if (Entry* entry = Find(id)) {
        entry->on = on;
        Show(*entry);
    }
}

bool GuiToolbar::GetButtonState(int id) const {
    const Entry* entry = Find(id);
    return entry && entry->on;
}

void GuiToolbar::EnableButton(int id, bool enable) {
    if (Entry* entry = Find(id)) {
        entry->enabled = enable;
        Show(*entry);
    }
}

void GuiToolbar::Click(int id) {
    Entry* entry = Find(id);
    if (!entry || !entry->enabled) {
        return;
    }
    if (entry->button.style == ToolStyle::Check) {
        entry->on = !entry->on;
    } else if (entry->button.style == ToolStyle::Radio) {
        for (Entry& other : entries_) {
            if (other.button.style == ToolStyle::Radio && other.group == entry->group) {
                other.on = &other == entry;
                Show(other);
            }
        }
    }
    Show(*entry);
    changeListeners.Call(id);
    if (IGuiWindow* parent = Parent()) {
        parent->commandListeners.Call(id);
    }
}

void GuiToolbar::ApplyLanguage() {
    for (Entry& entry : entries_) {
        if (Bar(window) && entry.action && !entry.button.tooltipKey.empty()) {
            entry.action->setToolTip(
                QString::fromUtf8(aurel::Lang(langSection, entry.button.tooltipKey).Utf8()));
        }
    }
    IGuiControl::ApplyLanguage();
}

void GuiToolbar::OnCreate() {
    auto* bar = new QToolBar(ParentWidget());
    bar->setIconSize(QSize(kButtonSize - 7, kButtonSize - 7));
    bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    window = Window(bar, true);
    for (Entry& entry : entries_) {
        Build(entry);
    }
}

// Makes the native button of an entry, once the bar exists.
void GuiToolbar::Build(Entry& entry) {
    QToolBar* bar = Bar(window);
    if (!bar || entry.action) {
        return;
    }
    if (entry.button.id == kSeparator) {
        entry.action = bar->addSeparator();
        return;
    }
    const int id = entry.button.id;
    entry.action = bar->addAction(MakeIcon(entry.button.icon, entry.button.iconAlt, iconRatio_), QString());
    entry.action->setCheckable(entry.button.style != ToolStyle::Button);
    // The state is the tool bar's: the toolkit's own toggle is put back before the click is applied.
    QObject::connect(entry.action, &QAction::triggered, [this, id] {
        if (Entry* clicked = Find(id)) {
            Show(*clicked);
        }
        Click(id);
    });
    if (QWidget* button = bar->widgetForAction(entry.action)) {
        button->setFixedSize(kButtonSize, kButtonSize);
    }
    Show(entry);
}

// The actions belong to the bar: without it they are gone.
void GuiToolbar::Show(const Entry& entry) {
    if (Bar(window) && entry.action && entry.button.id != kSeparator) {
        const QSignalBlocker quiet(entry.action);
        entry.action->setChecked(entry.on);
        entry.action->setEnabled(entry.enabled);
    }
}

}  // namespace kestrel2::win
