#include "tools/panelix/Meanings.h"

namespace panelix {
namespace {

constexpr FieldMeaning kPanelix[] = {
    {"enable", "Takes input from the user."},
    {"label", "Text of the label area."},
    {"auditorID", "Name by which the application finds the node; at most once in a file."},
    {"labelAlignment", "Place of the label within the label area."},
};

constexpr FieldMeaning kMenuCheckBox[] = {
    {"state", "Checked."},
    {"onString", "Title when checked, in the place of `label`; empty for none."},
    {"accelerator", "Key combination, such as \"Ctrl+O\"; goes ahead of one in the title."},
};

constexpr FieldMeaning kMenuPushButton[] = {
    {"accelerator", "Key combination, such as \"Ctrl+O\"; goes ahead of one in the title."},
};

constexpr FieldMeaning kMenuFileSelection[] = {
    {"title", "Title of the file dialog."},
    {"filter", "Pairs of a pattern and its description."},
    {"defaultFilter", "Index of the pair that the file dialog starts with, counted from 0."},
    {"fileDirectory", "Where the file dialog starts; then the directory of the chosen file."},
    {"filename", "File name that the file dialog proposes; then the chosen one, without its directory."},
    {"mode", "Whether a file is chosen to be opened or to be saved."},
};

constexpr FieldMeaning kMenuRadioButtons[] = {
    {"items", "Title of each entry."},
    {"selectedItem", "Index of the selected entry, counted from 0."},
    {"accelerators", "Key combination of each entry, one for each; one empty string for none at all."},
};

constexpr FieldMeaning kDialogComponent[] = {
    {"width", "In pixels; 0 for not set."},
    {"height", "In pixels; 0 for not set."},
    {"fixedWidth", "The width never changes: it is its own minimum and maximum."},
    {"fixedHeight", "The height never changes: it is its own minimum and maximum."},
    {"minWidth", "In pixels; 0 for not set."},
    {"minHeight", "In pixels; 0 for not set."},
    {"maxWidth", "In pixels; 0 for not set."},
    {"maxHeight", "In pixels; 0 for not set."},
    {"labelVisibility", "There is a label area."},
    {"edgeStyle", "Look of the frame: none, sunk or raised."},
};

constexpr FieldMeaning kDialogCheckBox[] = {
    {"state", "Checked."},
    {"onString", "Caption when checked, and when not checked as well if `offString` is empty."},
    {"offString", "Caption when not checked."},
};

constexpr FieldMeaning kDialogChoice[] = {
    {"items", "The entries; one empty string for none."},
    {"selectedItem", "Index of the selected entry, counted from 0."},
};

constexpr FieldMeaning kDialogEditText[] = {
    {"editText", "The text. Line ends may stand as `\\n`, tabs as `\\t`, quotes as `\\\"`."},
    {"editable", "The user may change the text."},
    {"trigOnEnter", "A new text counts when the user types Return; otherwise it does with every key."},
    {"isNumeric", "The 2D form takes nothing but a number; the 3D form takes any text."},
    {"multiLine", "There may be several lines, which can be scrolled."},
    {"wrapLine", "Several lines are wrapped at the edge; otherwise they can be scrolled sideways."},
};

constexpr FieldMeaning kDialogGroup[] = {
    {"windowResizedByChildren", "When children come or go, the sizes are computed anew."},
    {"margin", "Pixels left free along each side."},
    {"vScrollVisibility", "Whether the 2D form has a vertical scroll bar."},
    {"hScrollVisibility", "Whether the 2D form has a horizontal scroll bar."},
};

constexpr FieldMeaning kColumnDialog[] = {
    {"columnSpacing", "Pixels between two children."},
};

constexpr FieldMeaning kRowDialog[] = {
    {"rowSpacing", "Pixels between two children."},
};

constexpr FieldMeaning kTabDialog[] = {
    {"selectedPage", "Index of the page on show, counted from 0."},
    {"tabsLocation", "Side of the tabs in the 2D form."},
};

constexpr FieldMeaning kDialogPushButton[] = {
    {"buttonLabel", "Caption of the button."},
};

constexpr FieldMeaning kDialogSlider[] = {
    {"valueVisible", "The number is shown beside the bar, and can be edited there."},
    {"format", "How the number is printed: text with one conversion, as the printf functions of C have it."},
    {"continuousTrigger", "The number counts while the thumb moves; otherwise when it is released."},
    {"toggleVisible", "There is a check box that flips `continuousTrigger`."},
    {"fixedLimits", "A number that is typed is held within the limits; otherwise it moves them."},
    {"colors", "Background of the bar, from left to right."},
    {"shadedColors", "Two or more colours go over into each other; otherwise they are bands."},
};

constexpr FieldMeaning kLimits[] = {
    {"min", "Value at the left end of the bar."},
    {"max", "Value at the right end of the bar."},
    {"value", "The number."},
};

constexpr FieldMeaning kTopLevelDialog[] = {
    {"width", "Of the whole window, frame included, in pixels; 0 for what the children need."},
    {"height", "Of the whole window, caption and menu bar included, in pixels; 0 for what the children need."},
    {"position", "Of the window on the screen, in pixels."},
    {"position3D", "Top left corner of the 3D form: pixels to the right, pixels down, and z."},
    {"resizable", "The user may change the size."},
    {"minWidth", "In pixels; 0 for what the children need."},
    {"minHeight", "In pixels; 0 for what the children need."},
    {"maxWidth", "In pixels; 0 for what the children take."},
    {"maxHeight", "In pixels; 0 for what the children take."},
    {"margin", "Pixels left free along each side."},
    {"rowSpacing", "Pixels between two children."},
    {"modalFrame", "The window looks like a dialog's and stays on top; other windows stay usable."},
    {"hideChildren", "In the 3D form the children vanish when the user begins to drag the panel."},
    {"minimized", "The 3D form is folded to its title."},
    {"minimized3DPosition", "As `position3D`, of the folded form."},
    {"independentMinimizedPosition", "The folded form has a place of its own; otherwise both move together."},
    {"windowResizedByChildren", "When children come or go, the sizes are computed anew."},
    {"vScrollVisibility", "Whether the 2D form has a vertical scroll bar."},
    {"hScrollVisibility", "Whether the 2D form has a horizontal scroll bar."},
};

constexpr FieldMeaning kMessageDialog[] = {
    {"title", "Title of the window."},
    {"type",
     "What the message is for, which decides icon and buttons; `MD_WORKING` stays until the application ends it."},
};

constexpr ClassMeaning kMeanings[] = {
    {"Panelix", "Base of all nodes of the toolkit.", kPanelix},
    {"MenuItem",
     "Base of the entries of a menu. The `label` is the title: \"&\" stands ahead of the mnemonic, and a key "
     "combination "
     "may follow behind a tab.",
     {}},
    {"MenuCheckBox", "Entry with two states and a check mark.", kMenuCheckBox},
    {"MenuCheckBoxLauncher", "Check box that shows and hides dialogs of its own with its state.", {}},
    {"MenuPopup", "Entry that opens a menu of its own.", {}},
    {"MenuPushButton", "Entry that reports that it was chosen.", kMenuPushButton},
    {"MenuFileSelection", "Entry that lets the user choose a file in the system's dialog.", kMenuFileSelection},
    {"MenuPushButtonLauncher", "Entry that shows dialogs of its own.", {}},
    {"MenuRadioButtons", "Run of entries of which one is selected; the `label` isn't shown.", kMenuRadioButtons},
    {"MenuSeparator", "Dividing line of a menu.", {}},
    {"TopComponent", "Base of what stands directly in a top-level dialog.", {}},
    {"DialogComponent", "Base of the components of a dialog: sizes, a frame, and a label left of the component proper.",
     kDialogComponent},
    {"DialogCheckBox", "Component with two states and a caption that tells the state.", kDialogCheckBox},
    {"DialogCheckBoxLauncher", "Check box that shows and hides dialogs of its own with its state.", {}},
    {"DialogChoice", "Base of the components that offer entries of which one is selected.", kDialogChoice},
    {"DialogComboBox", "Choice that shows the selected entry, and all entries when it is opened.", {}},
    {"DialogRadioButtons", "Choice that shows all entries, one below the other.", {}},
    {"DialogCustom", "Place in a dialog for windows of the application.", {}},
    {"DialogEditText", "Text that the user can edit.", kDialogEditText},
    {"DialogGroup", "Base of the containers inside a dialog.", kDialogGroup},
    {"ColumnDialog", "Container that sets its children side by side, from left to right.", kColumnDialog},
    {"RowDialog", "Container that stacks its children from top to bottom, with common columns for their labels.",
     kRowDialog},
    {"TabDialog", "Container that shows one child at a time; the `label` of each child stands on its tab.", kTabDialog},
    {"DialogLabel", "Text that the user can't edit: the `label`, over the whole component.", {}},
    {"DialogPushButton", "Button with a caption.", kDialogPushButton},
    {"DialogPushButtonLauncher", "Button that shows dialogs of its own.", {}},
    {"DialogSeparator", "Dividing line between components.", {}},
    {"DialogSlider", "Base of the components that show a number between two limits as a bar with a thumb.",
     kDialogSlider},
    {"DialogIntegerSlider", "Slider of an integer.", kLimits},
    {"DialogRealSlider", "Slider of a real number.", kLimits},
    {"MenuBar", "The menus of a top-level dialog; at most one in each.", {}},
    {"TopLevelDialog", "Root of a dialog: a window on the desktop, or a panel in the scene.", kTopLevelDialog},
    {"MessageDialog", "A short text to the user, the `label`, in a window of its own.", kMessageDialog},
};

} // namespace

std::span<const ClassMeaning> meanings() { return kMeanings; }

const char* meaningOf(std::string_view keyword) {
  for (const ClassMeaning& meaning : kMeanings) {
    if (meaning.keyword == keyword) return meaning.text;
  }
  return "";
}

const char* meaningOf(std::string_view keyword, std::string_view field) {
  for (const ClassMeaning& meaning : kMeanings) {
    if (meaning.keyword != keyword) continue;
    for (const FieldMeaning& row : meaning.fields) {
      if (row.field == field) return row.text;
    }
  }
  return "";
}

} // namespace panelix
