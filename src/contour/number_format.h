// The five number formats of maps and read-outs. All round half away from zero on the decimal digits.
#pragma once
#include <string>

namespace zirvo {

enum class NumberFormat {
    Fixed1,       ///< "0.0": 12.5, -0.3, 0.0
    Fixed2,       ///< "0.00": 12.50
    Scientific1,  ///< "0.0E-0": 1.2E-4, 3.4E3, 0.0E0: no plus and no leading zeros in the exponent
    Scientific2,  ///< "0.00E-0": 1.23E-4, 3.40E3
    Exponent2     ///< "0.00E+00": 1.23E-04, 3.40E+03: sign always, at least two digits
};

/// x in the format. Infinities and NaN are fault 6.
std::string FormatNumber(double x, NumberFormat format);

}  // namespace zirvo
