#include "views/nav/gui_nav.h"
#include "views/nav/nav_ids.h"

namespace kovra {

using namespace kestrel2::win;

namespace {

// The file name of a path, without its folders.
std::string FileName(const aurel::DualString& path) {
    const std::string& text = path.Utf8();
    const std::size_t slash = text.find_last_of("/\\");
    return slash == std::string::npos ? text : text.substr(slash + 1);
}

// Puts the names into the list unless it holds them already, and selects the index; tells nobody.
void FillList(GuiListBox& list, const std::vector<std::string>& names, int selection) {
    bool same = list.GetCount() == static_cast<int>(names.size());
    for (int i = 0; same && i < list.GetCount(); ++i) {
        same = list.Item(i).text.Utf8() == names[static_cast<std::size_t>(i)];
    }
    if (!same) {
        list.Clear();
        for (const std::string& name : names) {
            list.AddItem(name, list.GetCount());
        }
    }
    if (list.GetSel() != selection) {
        list.SetSel(selection);
    }
}

}  // namespace

void GuiNav::Fill(GuiProps& grid, const std::vector<NavRow>& rows) {
    bool same = grid.RowCount() == static_cast<int>(rows.size());
    for (int i = 0; same && i < grid.RowCount(); ++i) {
        same = grid.Row(i).name.Utf8() == rows[static_cast<std::size_t>(i)].name &&
               grid.Row(i).type == rows[static_cast<std::size_t>(i)].type;
    }
    if (!same) {
        grid.Clear(static_cast<int>(rows.size()));
        for (const NavRow& row : rows) {
            grid.AddRow(row.name, row.type, row.value, row.constraint);
        }
    }
    for (int i = 0; i < grid.RowCount(); ++i) {
        const NavRow& row = rows[static_cast<std::size_t>(i)];
        if (i != grid.EditRow()) {
            if (row.type == kPropColor) {
                grid.SetColor(i, boost::any_cast<aurel::Color32>(row.constraint));
            } else if (grid.Row(i).value.Utf8() != row.value) {
                grid.SetValue(i, row.value);
            }
        }
        if (grid.Row(i).enabled != row.enabled) {
            grid.SetEnabled(i, row.enabled);
        }
    }
}

void GuiNav::OnSelectionChanged() {
    OnDocumentChanged();
}

void GuiNav::OnCurrentChanged(int) {
    OnDocumentChanged();
}

void GuiNav::OnDocumentChanged() {
    if (!built_ || !attached_) {
        return;
    }
    FillLists();
    FillPinPanels();
    FillSkinPanels();
    FillSwitches();
    SetMode(hub_.EditMode());
}

void GuiNav::FillLists() {
    std::vector<std::string> images;
    for (std::size_t i = 0; i < document_.images.size(); ++i) {
        const auto& image = document_.images[i];
        images.push_back(image ? FileName(image->path) : "-");
    }
    FillList(*Control<GuiListBox>(kNavImageList), images, images_.currentItem);
    Control<GuiButton>(kNavImageDel)->Enable(images_.currentItem >= 0 && !images.empty());
    Control<GuiButton>(kNavImageReplace)->Enable(images_.currentItem >= 0 && !images.empty());

    std::vector<std::string> anims;
    for (const WirrelAnim& anim : document_.Wirrel().anims) {
        anims.emplace_back(NameOf(anim.name));
    }
    FillList(*Control<GuiListBox>(kNavAnimList), anims,
             document_.HasCurrentAnim() ? document_.cursor.animIndex : -1);
}

void GuiNav::FillPinPanels() {
    const int pin = pins_.currentItem;
    const WirrelPin* record = PinAt(document_, pin);
    auto* types = Control<GuiComboBox>(kNavBoneTypes);
    types->Enable(record != nullptr);
    const int type = record ? static_cast<int>(record->Type()) : -1;
    types->SetSel(type <= static_cast<int>(Tail) ? type : -1);
    Fill(*Control<GuiProps>(kNavBoneProps), PinRows(document_, pin));
    Fill(*Control<GuiProps>(kNavCollisionProps), CollisionRows(document_, pin));
}

void GuiNav::FillSkinPanels() {
    const int pin = pins_.currentItem;
    const WirrelSkin* skin = SkinOf(document_, pin);
    Fill(*Control<GuiProps>(kNavSkinProps), skin ? SkinRows(*skin) : std::vector<NavRow>{});
    for (const int id : {kNavSkinMirror, kNavSkinFlip, kNavSkinCollision}) {
        controls_.at(id)->Enable(skin != nullptr);
    }
    const bool hasPin = PinAt(document_, pin) != nullptr;
    Control<GuiButton>(kNavSkinIncZ)->Enable(hasPin);
    Control<GuiButton>(kNavSkinDecZ)->Enable(hasPin);
    Control<GuiLabel>(kNavSkinZ)->SetLabel(hasPin ? "Z: " + std::to_string(pin) : "Z: -");
    auto* collision = Control<GuiComboBox>(kNavSkinCollision);
    collision->SetSel(skin ? skin->collision + 1 : -1);

    const auto& textures = document_.Wirrel().textures;
    const int current = textures_.currentItem;
    const bool hasTexture = current >= 0 && current < static_cast<int>(textures.size());
    Fill(*Control<GuiProps>(kNavTextureProps),
         hasTexture ? TextureRows(textures[static_cast<std::size_t>(current)]) : std::vector<NavRow>{});
    panels_.at(kNavSkinPanel)->Redraw();
}

void GuiNav::FillSwitches() {
    const auto& flags = document_.viewFlags;
    const std::pair<int, std::size_t> checks[] = {{kNavViewLabels, kViewLabels},
                                                  {kNavViewBones, kViewBones},
                                                  {kNavViewSkinning, kViewSkins},
                                                  {kNavViewCollision, kViewCollision},
                                                  {kNavViewBg, kViewBackground}};
    for (const auto& [id, flag] : checks) {
        Control<GuiCheckbox>(id)->SetCheck(flags[flag] ? kChecked : kUnchecked);
    }
    Control<GuiToolbar>(kNavOptions)->SetButtonState(kNavOptionIk, flags[kViewIk]);
    Control<GuiToolbar>(kNavOptions)->SetButtonState(kNavOptionRotate, flags[kViewRotateChildren]);
    auto* scale = Control<GuiEdit>(kNavScaleEdit);
    if (!scale->HasFocus()) {
        scale->SetText(std::to_string(document_.Wirrel().pixelsPerUnit));
    }
    auto* alpha = Control<GuiSlider>(kNavBgAlpha);
    if (!alpha->IsDragging()) {
        alpha->SetPos(document_.background.alpha);
    }
    Fill(*Control<GuiProps>(kNavBgProps), BackgroundRows(document_, hub_));
}

void GuiNav::OnPaletteOffer(int texture) {
    offered_ = WirrelSkin{};
    offered_.texture = texture;
    paletteListeners.Call(texture >= 0 ? &offered_ : nullptr);
}

void GuiNav::OnPaletteDrop(int texture, int px, int py) {
    const GuiSubPanel& panel = *panels_.at(kNavSkinPanel);
    const double ratio = panel.PixelRatio();
    skinDropListeners.Call(texture, x + panel.x + static_cast<int>(px / ratio),
                           y + panel.y + static_cast<int>(py / ratio));
}

}  // namespace kovra
