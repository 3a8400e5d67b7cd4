// Places and words of the data screen of the graphics path; see form5.h.
//
// Numbers in pixels of the design, of which 782 by 567 are seen. The work leads from the top left to the bottom right:
// data, counts and layers in the first row of frames, the loads across the second, then the name of the file, and the
// buttons in the order in which they are pressed.
#include "graphics/form5.h"
#include "shell/data_screen.h"
#include "shell/layout.h"

namespace zirvo {

void Form5::LayOut() {
    Left = 210;
    Top = 300;
    Width = 11730;
    Height = 8505;
    Place(Label1, 8, 8, 766, 18);
    Place(Frame1, 8, 30, 130, 180);
    Place(Option1, 10, 26, 114, 22);
    Place(Option2, 10, 60, 114, 22);
    Place(Command1, 10, 104, 110, 30);

    Place(Frame2, 146, 30, 160, 180);
    PlaceCount(6, 24, 104, MaximumLayers, Label2, Label4, VScroll1);
    PlaceCount(6 + CountColumnWidth, 24, 104, MaximumLoads, Label3, Label5, VScroll2);

    Place(Frame3, 314, 30, 460, 180);
    Place(MSFlexGrid1, 8, 20, 444, 152);
    Place(Frame4, 8, 218, 766, 230);
    Place(MSFlexGrid2, 8, 20, 750, 202);
    MSFlexGrid1.Cols = LayerColumns + 1;
    MSFlexGrid2.Cols = LoadColumns + 1;
    for (forms::MSFlexGrid* grid : {&MSFlexGrid1, &MSFlexGrid2}) {
        grid->Rows = 2;
        grid->FixedRows = 1;
        grid->FixedCols = 1;
    }

    Place(Frame5, 8, 456, 390, 54);
    Place(Text3, 12, 20, 366, 24);

    PlaceButtonRow({&Command3, &Command4, &Command5, &Command6, &Command7, &Command8, &Command9});
}

void Form5::SetCaptions() {
    const auto set = [this](auto& control, Int16 k) { control.Caption = Words(k); };
    set(Label1, 162);
    set(Frame1, 15);
    set(Option1, 16);
    set(Option2, 17);
    set(Command1, 18);
    set(Frame2, 19);
    set(Label2, 20);
    set(Label3, 21);
    set(Frame3, 23);
    set(Frame4, 24);
    set(Frame5, 27);
    set(Command3, 30);
    set(Command4, 31);
    set(Command5, 32);
    set(Command6, 33);
    set(Command7, 80);
    set(Command8, 35);
    set(Command9, 36);
}

}  // namespace zirvo
