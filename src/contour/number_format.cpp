// The five number formats of maps and read-outs. Callers: frame, legend, overlays, probe, the read-outs of the screen.
#include "contour/number_format.h"

#include "base/decimal15.h"

namespace zirvo {
namespace {

/// "1.2E-04" as "1.2E-4", "3.4E+03" as "3.4E3".
std::string WithShortExponent(std::string text) {
    std::size_t sign = text.find('E') + 1;
    if (text[sign] == '+') {
        text.erase(sign, 1);
    } else {
        ++sign;
    }
    while (sign + 1 < text.size() && text[sign] == '0') {
        text.erase(sign, 1);
    }
    return text;
}

}  // namespace

std::string FormatNumber(double x, NumberFormat format) {
    switch (format) {
        case NumberFormat::Fixed1:
            return FixedText(x, 1);
        case NumberFormat::Fixed2:
            return FixedText(x, 2);
        case NumberFormat::Scientific1:
            return WithShortExponent(ScientificText(x, 1));
        case NumberFormat::Scientific2:
            return WithShortExponent(ScientificText(x, 2));
        case NumberFormat::Exponent2:
            break;
    }
    return ScientificText(x, 2);
}

}  // namespace zirvo
