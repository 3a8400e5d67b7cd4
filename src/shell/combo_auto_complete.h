// Type-ahead of a combo box. Caller: the key press of the output component on the map screen.
#pragma once
#include "forms/combo_box.h"

namespace zirvo {

/// Puts the typed character into the text in place of the selection, makes the first entry that begins with the
/// built text (as typed, case counts) the current one, or else leaves the built text as it stands, and selects what
/// stands behind as many characters as the built text has.
/// @param keyCode      the character; set to 0, since the box need not take the key itself. Below 33: nothing happens
/// @param searchStart  character, from 1, at which the search in an entry starts; the found place must be the first
///                     character, so from 2 on no entry ever fits. Below 1: fault 5
void ComboAutoComplete(forms::ComboBox& combo, int& keyCode, int searchStart);

}  // namespace zirvo
