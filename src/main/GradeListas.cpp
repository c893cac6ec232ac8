#include "main/GradeListas.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <utility>

namespace {

/// The width that a date takes with its header, in average characters.
constexpr int LarguraData = 24;

} // namespace

GradeListas::GradeListas(QWidget* parent)
    : ReportList(parent)
    , m_modelo(new ModeloListas(this))
{
    setModel(m_modelo);
    setSelectionMode(SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(header(), &QHeaderView::sectionResized, this,
            [this](int coluna, int /*antiga*/, int largura) { Guarda_Proporcao(coluna, largura); });
}

void GradeListas::Preenche(std::vector<LinhaLista> linhas)
{
    ForgetSorting();
    m_modelo->Preenche(std::move(linhas));
}

std::optional<qint64> GradeListas::Linha_Atual() const
{
    if (!currentIndex().isValid())
        return std::nullopt;
    return m_modelo->Id(currentIndex().row());
}

void GradeListas::keyPressEvent(QKeyEvent* evento)
{
    if (evento->key() != Qt::Key_Return && evento->key() != Qt::Key_Enter) {
        ReportList::keyPressEvent(evento);
        return;
    }
    evento->accept();
    if (!evento->isAutoRepeat())
        emit KeyDown(Qt::Key_Return);
}

void GradeListas::contextMenuEvent(QContextMenuEvent* evento)
{
    evento->accept();
    if (evento->reason() == QContextMenuEvent::Keyboard && currentIndex().isValid())
        emit DblClick();
}

void GradeListas::focusInEvent(QFocusEvent* evento)
{
    ReportList::focusInEvent(evento);
    // Tab makes the first row current; what Enter would open has to be seen. A click chooses by
    // itself where it lands.
    const bool por_clique = evento->reason() == Qt::MouseFocusReason;
    if (!por_clique && currentIndex().isValid() && !selectionModel()->isSelected(currentIndex()))
        MakeCurrent(currentIndex());
}

void GradeListas::resizeEvent(QResizeEvent* evento)
{
    ReportList::resizeEvent(evento);
    Reparte_Colunas();
}

void GradeListas::Reparte_Colunas()
{
    const QScopedValueRollback<bool> repartindo(m_repartindo, true);
    const int largura = viewport()->width();
    const int dia = fontMetrics().averageCharWidth() * LarguraData;
    const int nome = m_proporcao ? static_cast<int>(largura * *m_proporcao) : largura - dia;
    header()->resizeSection(ModeloListas::Nome, qMax(0, nome));
}

void GradeListas::Guarda_Proporcao(int coluna, int largura)
{
    if (!m_repartindo && coluna == ModeloListas::Nome && viewport()->width() > 0)
        m_proporcao = static_cast<double>(largura) / viewport()->width();
}
