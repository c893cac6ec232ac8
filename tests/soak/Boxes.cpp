#include "Boxes.h"

#include "Musician.h"

#include "controls/RichTextBox.h"
#include "viewer/frmVisualizar.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int BetweenLooksMs = 2;

/// How often one window may be answered before it counts as one that does not close.
constexpr int TooOften = 5000;

/// The beginnings of all that the program has to say while nothing is wrong.
const QStringList& Sayings()
{
    static const QStringList sayings{u"Preencha o Título da música."_qs,
                                     u"Preencha a Refrência da música."_qs,
                                     u"Preencha a Letra e Cifra da música."_qs,
                                     u"Selecione pelo menos um Tema para a música."_qs,
                                     u"Música Atualizada com Sucesso!"_qs,
                                     u"Música Cadastrada com Sucesso!"_qs,
                                     u"Deseja limpar os campos para cadastrar uma nova música?"_qs,
                                     u"Deseja realmente excluir esta música?"_qs,
                                     u"Já existe um Tema com essa descrição."_qs,
                                     u"Tema '"_qs,
                                     u"Tema Alterado com Sucesso!"_qs,
                                     u"Não é possível excluir porque existe(m) "_qs,
                                     u"Deseja realmente excluir este Tema?"_qs,
                                     u"Deseja descartar as modificações na lista?"_qs,
                                     u"Preencha o nome e a data da lista corretamente."_qs,
                                     u"Lista Cadastrada com Sucesso!"_qs,
                                     u"Lista Alterada com Sucesso!"_qs,
                                     u"Lista Excluída com Sucesso!"_qs,
                                     u"Deseja realmente excluir essa lista?"_qs,
                                     u"Deseja descartar as alterações realizadas?"_qs,
                                     u"Marque as músicas da lista que você deseja exportar."_qs,
                                     u"Arquivo gerado com sucesso!"_qs,
                                     u"Arquivos gerados com sucesso!"_qs,
                                     u"A música '"_qs,
                                     u"Arquivo não Reconhecido."_qs,
                                     u"Arquivo no formato inválido."_qs,
                                     u"Melodario Versão "_qs};
    return sayings;
}

bool Known(const QString& text)
{
    return std::any_of(Sayings().begin(), Sayings().end(),
                       [&text](const QString& saying) { return text.startsWith(saying); }) ||
           text.contains(u"música(s) importada(s) com sucesso!");
}

} // namespace

Boxes::Boxes(Musician& musician)
    : m_musician(musician)
{
    QTimer::singleShot(BetweenLooksMs, this, &Boxes::Look);
}

/// Each look asks for the next one before it acts: boxes open inside boxes.
void Boxes::Look()
{
    QTimer::singleShot(BetweenLooksMs, this, &Boxes::Look);
    QWidget* window = QApplication::activeModalWidget();
    if (!window || !window->isVisible() || !window->isEnabled())
        return;
    m_times = window == m_last ? m_times + 1 : 0;
    m_last = window;
    m_musician.Demand(m_times < TooOften, u"a window does not close: "_qs + window->objectName() +
                                              u' ' + window->windowTitle());
    Answer(*window);
}

void Boxes::Answer(QWidget& window)
{
    if (auto* box = qobject_cast<QMessageBox*>(&window))
        AnswerMessage(*box);
    else if (auto* input = qobject_cast<QInputDialog*>(&window))
        AnswerInput(*input);
    else if (auto* picker = qobject_cast<QFileDialog*>(&window))
        AnswerPicker(*picker);
    else if (window.objectName() == u"frmMensagem")
        AnswerSaveChoice(window);
    else if (window.objectName() == u"frmMensagem2")
        AnswerSetlistChoice(window);
    else if (window.objectName() == u"frmExportar")
        UseExportForm(window);
    // Anything else shows progress and goes by itself.
}

void Boxes::AnswerMessage(QMessageBox& box)
{
    const QString text = box.text();
    m_musician.heard += text;
    m_musician.journal.Note(u"box "_qs + text);
    m_musician.journal.Count("boxes");
    m_musician.Demand(Known(text) || m_musician.MayFail(), u"an unexpected box: "_qs + text);
    m_musician.Demand(box.windowTitle() == u"Melodario", u"a box with another title"_qs);
    m_musician.Demand(box.icon() != QMessageBox::Critical || m_musician.MayFail(),
                      u"a critical box: "_qs + text);
    if (box.icon() != QMessageBox::Question) {
        if (m_musician.chance.OneIn(2))
            Hands::Press(&box, m_musician.chance.OneIn(2) ? Qt::Key_Return : Qt::Key_Escape);
        else
            Hands::Click(box.buttons().constFirst());
        return;
    }
    const bool yes = m_musician.chance.Below(10) < 7;
    m_musician.journal.Note(yes ? u"yes"_qs : u"no"_qs);
    if (yes)
        Permit(text);
    Hands::Click(box.button(yes ? QMessageBox::Yes : QMessageBox::No));
}

void Boxes::Permit(const QString& question)
{
    if (question == u"Deseja realmente excluir esta música?") {
        m_musician.permitted.songs += m_musician.Tag("txtCadTitulo").toLongLong();
        m_musician.journal.Count("songs deleted");
    } else if (question == u"Deseja realmente excluir este Tema?") {
        m_musician.permitted.themes = true;
        m_musician.journal.Count("themes deleted");
    } else if (question == u"Deseja realmente excluir essa lista?") {
        m_musician.permitted.setlists = true;
        m_musician.journal.Count("setlists deleted");
    }
}

void Boxes::AnswerInput(QInputDialog& box)
{
    auto* edit = box.findChild<QLineEdit*>();
    if (!edit)
        return;
    Chance& chance = m_musician.chance;
    m_musician.journal.Count("input boxes");
    m_musician.permitted.themes = true; // all of them ask for a theme's name
    const auto& themes = m_musician.watch->Rows().themes;
    switch (chance.Below(6)) {
    case 0:
        Hands::Press(&box, Qt::Key_Escape);
        return;
    case 1:
        Hands::Replace(edit, themes.values().value(chance.Below(themes.size())));
        break;
    case 2:
        break; // as it came
    default:
        Hands::Replace(edit, u"  "_qs + m_musician.Word() + (chance.OneIn(4) ? u"'"_qs : u" "_qs) +
                                 QString::number(chance.Below(30)));
    }
    m_musician.journal.Note(u"typed "_qs + edit->text());
    Hands::Press(edit, Qt::Key_Return);
}

void Boxes::AnswerPicker(QFileDialog& box)
{
    Chance& chance = m_musician.chance;
    auto* edit = box.findChild<QLineEdit*>(u"fileNameEdit"_qs);
    auto* buttons = box.findChild<QDialogButtonBox*>();
    m_musician.journal.Count("pickers");
    const QString folder = m_musician.files.path();
    QString path;
    if (box.fileMode() == QFileDialog::Directory) {
        path = folder;
    } else if (box.acceptMode() == QFileDialog::AcceptSave) {
        path = folder + u"/troca"_qs + QString::number(chance.Below(6)) +
               (chance.OneIn(2) ? u".mld"_qs : QString());
    } else {
        const QStringList stored = QDir(folder).entryList(QDir::Files, QDir::Name);
        if (!stored.isEmpty())
            path = folder + u'/' + chance.Of(stored);
    }
    if (!edit || !buttons || path.isEmpty() || chance.OneIn(6)) {
        m_musician.journal.Note(u"no file"_qs);
        Hands::Press(&box, Qt::Key_Escape);
        return;
    }
    m_musician.journal.Note(path.section(u'/', -1));
    Hands::Click(edit);
    Hands::Press(edit, Qt::Key_A, Qt::ControlModifier);
    Hands::Paste(edit, path);
    const auto all = buttons->buttons();
    for (QAbstractButton* button : all) {
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole && button->isEnabled()) {
            Hands::Click(button);
            return;
        }
    }
}

void Boxes::PressOneOf(QWidget& window, const QStringList& buttons)
{
    auto* button = window.findChild<QAbstractButton*>(m_musician.chance.Of(buttons));
    if (!Hands::Reachable(button))
        return;
    m_musician.journal.Note(button->objectName());
    Hands::Click(button);
}

/// What is shown is what must lie in the catalogue afterwards.
void Boxes::AnswerSaveChoice(QWidget& dialog)
{
    Chance& chance = m_musician.chance;
    const auto* viewer = qobject_cast<frmVisualizar*>(dialog.parentWidget());
    m_musician.Demand(viewer != nullptr, u"a save choice without a viewer"_qs);
    const int answer = chance.Below(5); // 0 Esc, 1 and 2 save, 3 does not, 4 goes on
    const auto id = static_cast<qint64>(viewer->ID_Musica);
    const auto& songs = m_musician.watch->Rows().songs;
    const auto* first = viewer->findChild<RichTextBox*>(u"RichTextBox_1"_qs);
    const auto* second = viewer->findChild<RichTextBox*>(u"RichTextBox_2"_qs);
    if ((answer == 1 || answer == 2) && songs.contains(id) && !m_musician.orphaned) {
        const RichTextBox* shown = first->isVisible() ? first : second;
        StoredSong song = songs[id];
        song.text = answer == 2 ? shown->Text() : first->Text();
        song.text2 = answer == 2 ? shown->Text() : second->Text();
        song.title = viewer->findChild<QLabel*>(u"lblTitulo"_qs)->text().remove(u'*');
        song.key = QString(); // as displayed, in the usual spelling
        m_musician.permitted.songs += id;
        m_musician.Expect(id, song);
        m_musician.quoteTyped = song.title.contains(u'\'');
        m_musician.journal.Count("songs saved in viewers");
    }
    static const QStringList names{u""_qs, u"cmdSalvar"_qs, u"cmdSalvarIgualar"_qs,
                                   u"cmdNaoSalvar"_qs, u"cmdCancelar"_qs};
    if (answer == 0) {
        m_musician.journal.Note(u"Esc"_qs);
        Hands::Press(&dialog, Qt::Key_Escape);
    } else {
        PressOneOf(dialog, {names[answer]});
    }
}

void Boxes::AnswerSetlistChoice(QWidget& dialog)
{
    static const QStringList names{u"cmdAbrir"_qs,  u"cmdEditar"_qs,  u"cmdEditar"_qs,
                                   u"cmdCopiar"_qs, u"cmdExcluir"_qs, u"cmdCancelar"_qs};
    if (m_musician.chance.OneIn(10))
        Hands::Press(&dialog, Qt::Key_Escape);
    else
        PressOneOf(dialog, names);
}

void Boxes::UseExportForm(QWidget& form)
{
    Chance& chance = m_musician.chance;
    if (auto* single = form.findChild<QCheckBox*>(u"chkArquivo"_qs);
        Hands::Reachable(single) && chance.OneIn(3))
        Hands::Press(single, Qt::Key_Space);
    PressOneOf(form, {u"cmdExportar"_qs, u"cmdExportar"_qs, u"cmdCancelar"_qs});
}
