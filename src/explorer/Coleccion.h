// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace explorer {

/// Entries by number, in the order in which they were added. The collection exists from its first
/// entry, even while it is empty later, until all are taken out at once.
template<class Entrada>
class Coleccion {
public:
    using Elemento = std::pair<qint64, std::shared_ptr<Entrada>>;

    bool Hecha() const { return m_elementos.has_value(); }

    /// Null if there is none.
    std::shared_ptr<Entrada> Hallar(qint64 id) const {
        if (!m_elementos)
            return nullptr;
        const auto hallado = std::ranges::find(*m_elementos, id, &Elemento::first);
        return hallado == m_elementos->end() ? nullptr : hallado->second;
    }

    /// False if the number is in use.
    bool Agregar(qint64 id, std::shared_ptr<Entrada> entrada) {
        if (Hallar(id))
            return false;
        if (!m_elementos)
            m_elementos.emplace();
        m_elementos->emplace_back(id, std::move(entrada));
        return true;
    }

    void Quitar(qint64 id) {
        if (m_elementos)
            std::erase_if(*m_elementos, [id](const Elemento& e) { return e.first == id; });
    }

    std::vector<Elemento> SacarTodas() {
        return std::exchange(m_elementos, std::nullopt).value_or(std::vector<Elemento>());
    }

private:
    std::optional<std::vector<Elemento>> m_elementos;
};

} // namespace explorer
