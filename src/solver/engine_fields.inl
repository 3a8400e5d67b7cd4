// The fields of whole layers as few numbers, for sums at depths that are all different: each component is a sum of four
// coefficients times four functions of the depth (engine_pairs.inl), and the coefficients do not hang on the depth.
//   thick, and the last layer: the modes exp(-zeta), zeta exp(-zeta), exp(-eta), eta exp(-eta).
//   thin, where modes cancel: the field at the top and its derivative there, the derivative at the bottom and the field
//     there, which tell all of it, since each component has four degrees of freedom. Derivatives are by zeta and come
//     from the equations.
// Notation as in engine_layers.inl.

/// Takes coefficients of the layers that have a slot, for the vector of nodes at Node of its block.
struct FieldTaker {
    const LayeredSystem& System;
    const int* Slots;  // of each layer; -1: not wanted
    int Deepest;       // layer that has one
    int Node;
    FieldsPlace Out;
    int Reached = 0;

    double* At(int slot) const {
        return Out.Numbers + slot * Out.SlotStride + Node / 8 * (FieldNumbers * 8) + Node % 8;
    }
    bool More() const { return Reached <= Deepest; }

    static void Put(double* out, int component, const Number c[4]) {
        for (int j = 0; j < 4; ++j) {
            Store(out + (component * 4 + j) * 8, Rounded(c[j]));
        }
    }

    void Take(const LayerHere& here) {
        Reached = here.Layer + 1;
        const int slot = here.Layer <= Deepest ? Slots[here.Layer] : -1;
        if (slot < 0) {
            return;
        }
        for (int i = 0; i < ZIRVO_LANES; ++i) {
            Out.Forms[slot * NodeBlock + Node + i] = here.Thin ? FormThin : FormThick;
        }
        FieldValues f[4];
        if (here.Thin) {
            AtEnds(here, f);
        } else {
            for (int j = 0; j < 4; ++j) {
                f[j] = OfMode(here, j);
            }
        }
        Number w[4], s[4], u[4], t[4], half[4], more[4], less[4];
        for (int j = 0; j < 4; ++j) {
            w[j] = f[j].W;
            s[j] = f[j].S;
            u[j] = f[j].U;
            t[j] = f[j].T;
            half[j] = (f[j].U + f[j].V) * 0.5;
            more[j] = (f[j].T + f[j].Q) * 0.5;
            less[j] = (f[j].T - f[j].Q) * 0.5;
        }
        double* const out = At(slot) + (here.Horizontal ? HorizontalFields : 0) * 4 * 8;
        Put(out, 0, w);
        Put(out, 1, s);
        Put(out, 2, u);
        Put(out, 3, here.Horizontal ? half : t);
        if (here.Horizontal) {
            Put(out, 4, more);
            Put(out, 5, less);
        }
        for (int j = 0; j < 4; ++j) {
            Vec strain = Larger(Larger(Size(s[j]), Size(u[j])), Size(t[j]));
            Vec displacement = Larger(Size(w[j]), Size(u[j]));
            if (here.Horizontal) {
                const Number other = (f[j].U - f[j].V) * 0.5;
                const Vec sides = Larger(Size(half[j]), Size(other));
                strain = Larger(Larger(Larger(Size(s[j]), Size(u[j])), sides), Larger(Size(more[j]), Size(less[j])));
                displacement = Larger(Size(w[j]), sides);
            }
            double* const sizes = At(slot) + (FieldComponents + (here.Horizontal ? 2 : 0)) * 4 * 8;
            Store(sizes + j * 8, strain);
            Store(sizes + (4 + j) * 8, displacement);
        }
    }

    /// What the field does not reach is 0.
    void TakeRest(bool horizontal) {
        for (int layer = Reached; layer <= Deepest; ++layer) {
            const int slot = Slots[layer];
            if (slot < 0) {
                continue;
            }
            const int first = horizontal ? HorizontalFields : 0;
            const int end = horizontal ? FieldComponents : HorizontalFields;
            for (int i = first * 4; i < end * 4; ++i) {
                Store(At(slot) + i * 8, All(0.0));
            }
            for (int i = 0; i < 8; ++i) {
                Store(At(slot) + ((FieldComponents + (horizontal ? 2 : 0)) * 4 + i) * 8, All(0.0));
            }
        }
    }

    /// Derivatives of a field by zeta: u' = 2 T - w, w' = (k2 S + nu u) / (1 - nu), T' = (u - nu S) / (1 - nu), S' = T,
    /// v' = 2 Q, Q' = v / 2, tractions over m2.
    static FieldValues Derivative(Constant nu, const FieldValues& f) {
        const Constant d = 1.0 / (1.0 - nu);
        return {
            2.0 * f.T - f.W, ((1.0 - 2.0 * nu) * d) * f.S + (nu * d) * f.U, d * f.U - (nu * d) * f.S, f.T, 2.0 * f.Q,
            0.5 * f.V};
    }

    /// A thin layer's field and its derivative at the top, its derivative and field at the bottom.
    void AtEnds(const LayerHere& here, FieldValues f[4]) const {
        f[0] = here.ThinOne.Top;
        f[3] = here.ThinOne.Bottom;
        const double h = System.Thickness[here.Layer];
        if (!here.ThinOne.TopIsBetter) {
            LedUp(here.State->Sums, here.Nu, here.Xi * ConstantOf(h, 0), f[3], f[0]);
        }
        if (here.Layer == 0) {
            WithoutHalfSpace(here, NumberOf(0.0), f[0]);
            WithoutHalfSpace(here, here.Xi * ConstantOf(h, 0), f[3]);
        }
        f[1] = Derivative(here.Nu, f[0]);
        f[2] = Derivative(here.Nu, f[3]);
    }

    /// What stands with one of the modes.
    static FieldValues OfMode(const LayerHere& here, int j) {
        const Constant k1 = 2.0 * (1.0 - here.Nu);
        const Constant k2 = 1.0 - 2.0 * here.Nu;
        const LayerField& a = here.Thick;
        const Number zero = NumberOf(0.0);
        switch (here.Last && j > 1 ? 4 : j) {
            case 0:
                return {a.A1 - k1 * a.A2, -a.A1 - k2 * a.A2, a.A2 - a.A1, a.A1, a.As, -0.5 * a.As};
            case 1:
                return {a.A2, -a.A2, -a.A2, a.A2, zero, zero};
            case 2:
                return {a.B1 - k1 * a.B2, a.B1 + k2 * a.B2, a.B1 - a.B2, a.B1, a.Bs, 0.5 * a.Bs};
            case 3:
                return {a.B2, a.B2, a.B2, a.B2, zero, zero};
            default:
                return {zero, zero, zero, zero, zero, zero};
        }
    }
};

void Fields(const LayeredSystem& system, const double* radii, int radiusCount, NodePlace xi, int nodes,
            const int* slots, int deepestWanted, bool vertical, bool horizontal, int& deepest, const FieldsPlace& out) {
    LayerState states[MostLayers];
    for (int node = 0; node < nodes; node += ZIRVO_LANES) {
        const Number x = NumberAt(xi + node);
        const int bottom = deepest;
        for (int layer = 0; layer <= deepestWanted; ++layer) {
            for (int i = 0; i < ZIRVO_LANES && slots[layer] >= 0; ++i) {
                out.Forms[slots[layer] * NodeBlock + node + i] = FormNone;
            }
        }
        int reach = 0;
        FieldsPlace place = out;
        for (int i = 0; i < radiusCount; ++i, place.Numbers += out.RadiusStride) {
            Upwards(system, radii[i], x, bottom, states, i > 0);
            for (int load = 0; load < 2; ++load) {
                const bool shear = load == 1;
                if (shear ? horizontal : vertical) {
                    FieldTaker taker{system, slots, deepestWanted, node, place};
                    const int other = Downwards(system, radii[i], states, x, bottom, shear, taker);
                    reach = other > reach ? other : reach;
                }
            }
        }
        deepest = reach;
    }
}
