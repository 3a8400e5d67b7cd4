// Places and words of the data screen of an analysis; see form3.h.
//
// Numbers in pixels of the design, of which 782 by 567 are seen. The work leads from the top left to the bottom right:
// data, counts and layers in the first row of frames, the loads across the second, points and file names in the third,
// and the buttons in the order in which they are pressed. The vertical edges of the frames meet in all rows. Fonts do
// not grow with the screen, so the grids are wide enough for their headings at 1024 by 768 in both languages.
#include "analysis/form3.h"
#include "shell/data_screen.h"
#include "shell/layout.h"

namespace zirvo {
namespace {

/// A file name: its label, and the box under it across the frame.
void PlaceName(double top, forms::Label& label, forms::TextBox& box) {
    Place(label, 12, top, 366, 16);
    Place(box, 12, top + 17, 366, 24);
}

}  // namespace

void Form3::LayOut() {
    Left = 210;
    Top = 300;
    Width = 11730;
    Height = 8505;
    LayOutData();
    LayOutGrids();
    LayOutFilesAndButtons();
}

void Form3::LayOutData() {
    Place(Label1, 8, 8, 766, 18);
    Place(Frame1, 8, 30, 130, 140);
    Place(Option1, 10, 24, 114, 22);
    Place(Option2, 10, 54, 114, 22);
    Place(Command1, 10, 96, 110, 30);

    Place(Frame2, 146, 30, 230, 140);
    constexpr double top = 20;
    constexpr double bar = 72;
    PlaceCount(4, top, bar, MaximumLayers, Label2, Label7, VScroll1);
    PlaceCount(4 + CountColumnWidth, top, bar, MaximumLoads, Label3, Label8, VScroll2);
    PlaceCount(4 + 2 * CountColumnWidth, top, bar, MaximumPoints, Label4, Label9, VScroll3);
}

void Form3::LayOutGrids() {
    Place(Frame3, 384, 30, 390, 140);
    Place(MSFlexGrid1, 8, 20, 374, 112);
    Place(Frame4, 8, 178, 766, 118);
    Place(MSFlexGrid2, 8, 20, 750, 90);
    Place(Frame5, 8, 304, 368, 215);
    Place(MSFlexGrid3, 8, 20, 352, 187);
    MSFlexGrid1.Cols = LayerColumns + 1;
    MSFlexGrid2.Cols = LoadColumns + 1;
    MSFlexGrid3.Cols = PointColumns + 1;
    for (forms::MSFlexGrid* grid : {&MSFlexGrid1, &MSFlexGrid2, &MSFlexGrid3}) {
        grid->FixedRows = 1;
        grid->FixedCols = 1;
    }
}

void Form3::LayOutFilesAndButtons() {
    Place(Frame6, 384, 304, 390, 180);
    PlaceName(24, Label5, Text7);
    PlaceName(75, Label6, Text8);
    PlaceName(126, Label10, Text1);
    Place(Text9, 384, 493, 390, 26);
    Text9.Font = forms::FontSpec{.Name = {}, .Size = 12, .Bold = true};

    PlaceButtonRow({&Command3, &Command4, &Command5, &Command6, &Command7, &Command8, &Command9});
}

void Form3::SetCaptions() {
    const auto set = [this](auto& control, Int16 k) { control.Caption = Words(k); };
    set(Label1, 14);
    set(Frame1, 15);
    set(Option1, 16);
    set(Option2, 17);
    set(Command1, 18);
    set(Frame2, 19);
    set(Label2, 20);
    set(Label3, 21);
    set(Label4, 22);
    set(Frame3, 23);
    set(Frame4, 24);
    set(Frame5, 25);
    set(Frame6, 26);
    set(Label5, 27);
    set(Label6, 158);
    set(Label10, 159);
    set(Command3, 30);
    set(Command4, 31);
    set(Command5, 32);
    set(Command6, 33);
    set(Command7, 34);
    set(Command8, 35);
    set(Command9, 36);
}

}  // namespace zirvo
