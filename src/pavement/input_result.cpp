// Messages of refused files, see input_result.h.
#include "pavement/input_result.h"

namespace zirvo {

Int16 MessageOf(InputError error) {
    switch (error) {
        case InputError::NamesInvalid:
            return 56;
        case InputError::CountsInvalid:
            return 58;
        case InputError::LayerInvalid:
            return 59;
        case InputError::LoadInvalid:
            return 60;
        case InputError::PointInvalid:
            return 61;
        case InputError::ReadFailed:
            break;
    }
    return 0;
}

}  // namespace zirvo
