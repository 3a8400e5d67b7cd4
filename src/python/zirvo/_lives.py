"""Lives from strains by transfer functions, and damage."""
import numpy as np

from . import _zirvo
from ._solving import _PLACES


class Lives:
    """A transfer function: one of Lives.names(), "fatigue=K1/K2/K3" (modulus in MPa) or "rutting=K1/K2".

    c is the mix factor of fatigue, see mix_factor(). Hold the coefficients against the document that `source` names before
    you sign a design. By coefficients: N = K1 C e^-K2 E^-K3 and K1 e^-K2, with e as a plain number, not in micro.
    """

    def __init__(self, function, c=1.0):
        if not c > 0:
            raise _zirvo.Error(f"c {c}: is not above 0")
        self._function = _zirvo.TransferFunction(function)
        self.c = float(c)

    @staticmethod
    def names():
        """Name to source of the functions that there are."""
        return _zirvo.functions()

    @property
    def name(self):
        return self._function.name

    @property
    def source(self):
        return self._function.source

    def __call__(self, strain, modulus=1.0):
        """Repetitions for strains in micro, positive where they do harm, and moduli in MPa; numbers or arrays. Infinite where
        the strain does no harm."""
        return self._function.lives(np.asarray(strain, dtype=np.float64), np.asarray(modulus, dtype=np.float64), self.c)[()]

    def strain(self, solution):
        """The strain that counts, in micro, at each point of a Solution: the larger principal strain in the plane of the layers,
        or the vertical one with its sign changed."""
        values = solution.values
        if not self._function.fatigue:
            return -values[:, _PLACES["EPSz"]]
        x, y, xy = (values[:, _PLACES[name]] for name in ("EPSx", "EPSy", "GAMxy"))
        return (x + y) / 2 + np.hypot((x - y) / 2, xy / 2)

    def of(self, solution, modulus=1.0):
        """Repetitions at each point of a Solution."""
        return self(self.strain(solution), modulus)

    def __repr__(self):
        return f"<zirvo.Lives {self.name}>"


def mix_factor(voids, binder):
    """C = 10^(4.84 (binder / (voids + binder) - 0.69)) of the Asphalt Institute, both in percent of the volume."""
    if not (voids >= 0 and binder > 0 and voids + binder <= 100):
        raise _zirvo.Error("voids, binder: must be above 0 and together at most 100")
    return _zirvo.mix_factor(voids, binder)


def damage(repetitions, lives):
    """The sum of repetitions / lives (Miner); an endless life takes no damage."""
    return float(np.sum(np.asarray(repetitions, dtype=np.float64) / np.asarray(lives, dtype=np.float64)))
