// Places and words of the map screen; see form6.h. The controls stand to the left of the picture, from top to bottom in
// the order of the work, and the last row of buttons ends with the picture.
#include "graphics/form6.h"
#include "shell/layout.h"

namespace zirvo {

void Form6::LayOut() {
    Left = 210;
    Top = 300;
    Width = 11730;
    Height = 8505;
    Picture1.Move(3660, 240, 7935, 8100);
    Picture1.BackColor = 0x000000;

    constexpr double X = 8;
    constexpr double Across = 228;  // of the column beside the picture
    Place(Frame1, X, 10, Across, 40);
    Place(Combo1, 8, 15, 212, 20);

    Place(Frame5, X, 54, Across, 84);
    Place(Option3, 8, 16, 100, 19);
    Place(Option4, 8, 38, 100, 19);
    Place(Option5, 8, 60, 100, 19);
    for (forms::Image* image : {&Image1, &Image2, &Image3}) {
        Place(*image, 112, 14, 108, 66);
        image->Visible = false;
    }
    Image1.Picture = "plane_xz";
    Image2.Picture = "plane_xy";
    Image3.Picture = "plane_yz";

    Place(Label1, X, 143, 152, 20);
    Place(Text1, 164, 143, 72, 20);
    Place(Command1, X, 167, Across, 22);
    Place(Label2, X, 143, 152, 20);
    Place(Text2, 164, 143, 72, 20);
    Place(Command10, X, 167, Across, 22);
    Place(Label24, X, 191, Across, 14);
    Label24.Align = forms::Alignment::Center;
    Label24.Font = forms::FontSpec{.Name = {}, .Size = 10, .Bold = true};

    Place(Frame2, X, 207, Across, 94);
    constexpr double Names = 8;
    constexpr double Low = 72;
    constexpr double High = 148;
    Place(Label14, Low, 16, 72, 14);
    Place(Label15, High, 16, 72, 14);
    Place(Label16, Names, 32, 60, 16);
    Place(Label17, Low, 32, 72, 16);
    Place(Label18, High, 32, 72, 16);
    Place(Label19, Names, 50, 60, 16);
    Place(Label20, Low, 50, 72, 16);
    Place(Label21, High, 50, 72, 16);
    Place(Label22, Names, 69, 60, 20);
    Place(Text3, Low, 69, 72, 20);
    Place(Text4, High, 69, 72, 20);
    for (forms::Label* number : {&Label17, &Label18, &Label20, &Label21}) {
        number->Align = forms::Alignment::Right;
    }
    Place(Command5, X, 306, Across, 22);

    Place(Frame3, X, 333, Across, 102);
    for (int i = 0; i < DisplayItemCount; ++i) {
        Place(Check1(i), 8, 15 + 17 * i, 212, 16);
    }

    Place(Command6, X, 445, 36, 22);
    Place(Frame4, 50, 439, 186, 60);
    Place(Label23, 8, 16, 172, 14);
    Place(Text14, 8, 34, 60, 20);
    Place(Label5, 74, 34, 104, 20);

    Place(Command2, X, 507, 72, 22);
    Place(Command3, 84, 507, 52, 22);
    Place(Command7, 140, 507, 96, 22);
    Place(Command8, X, 534, 112, 22);
    Place(Command9, 124, 534, 112, 22);
}

void Form6::SetCaptions() {
    Frame1.Caption = Words(100);
    Frame5.Caption = Words(135);
    Option3.Caption = Words(136);
    Option4.Caption = Words(137);
    Option5.Caption = Words(138);
    Label1.Caption = Words(86);
    Command1.Caption = Words(98);
    Label2.Caption = Words(144);
    Command10.Caption = Words(98);
    Frame2.Caption = Words(102);
    Label14.Caption = Words(103);
    Label15.Caption = Words(104);
    Label16.Caption = Words(105);
    Label19.Caption = Words(106);
    Label22.Caption = Words(107);
    Command5.Caption = Words(108);
    Frame3.Caption = Words(109);
    for (int i = 0; i < DisplayItemCount; ++i) {
        Check1(i).Caption = Words(ToInt16(110 + i));
    }
    Command6.Caption = Words(115);
    Frame4.Caption = Words(117);
    Label23.Caption = Words(118);
    Label5.Caption = "(5 - 200)";
    Command2.Caption = Words(30);
    Command3.Caption = Words(10);
    Command7.Caption = Words(119);
    Command8.Caption = Words(133);
    Command9.Caption = Words(120);
    Label24.Caption = Words(164);
}

}  // namespace zirvo
