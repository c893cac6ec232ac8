#include "naive/NaiveSearch.h"

#include <QTreeWidget>

#include <sqlite3.h>
#include <unicode/ucol.h>
#include <unicode/unistr.h>

namespace {

icu::UnicodeString Argument(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(text ? text : "", sqlite3_value_bytes(value)));
}

/// % any characters, _ one.
bool Matches(const icu::UnicodeString& pattern, int32_t p, const icu::UnicodeString& text,
             int32_t t)
{
    for (; p < pattern.length(); ++p, ++t) {
        if (pattern[p] == u'%') {
            for (int32_t rest = t; rest <= text.length(); ++rest) {
                if (Matches(pattern, p + 1, text, rest))
                    return true;
            }
            return false;
        }
        if (t >= text.length() || (pattern[p] != u'_' && pattern[p] != text[t]))
            return false;
    }
    return t == text.length();
}

void Like(sqlite3_context* context, int /*count*/, sqlite3_value** values)
{
    const icu::UnicodeString pattern = Argument(values[0]).foldCase();
    const icu::UnicodeString text = Argument(values[1]).foldCase();
    sqlite3_result_int(context, Matches(pattern, 0, text, 0) ? 1 : 0);
}

int Compare(void* collator, int lengthA, const void* a, int lengthB, const void* b)
{
    UErrorCode error = U_ZERO_ERROR;
    UCharIterator left;
    UCharIterator right;
    uiter_setUTF8(&left, static_cast<const char*>(a), lengthA);
    uiter_setUTF8(&right, static_cast<const char*>(b), lengthB);
    return ucol_strcollIter(static_cast<UCollator*>(collator), &left, &right, &error);
}

QString Column(sqlite3_stmt* statement, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

} // namespace

struct NaiveSearch::Database
{
    explicit Database(const QString& path)
    {
        if (sqlite3_open(path.toUtf8().constData(), &handle) != SQLITE_OK)
            qFatal("the catalogue does not open");
        UErrorCode error = U_ZERO_ERROR;
        collator = ucol_open("pt_BR", &error);
        ucol_setStrength(collator, UCOL_SECONDARY);
        sqlite3_create_function(handle, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                Like, nullptr, nullptr);
        sqlite3_create_collation(handle, "ICU", SQLITE_UTF8, collator, Compare);
    }
    ~Database()
    {
        sqlite3_close(handle);
        ucol_close(collator);
    }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    sqlite3_stmt* Prepare(const QString& sql) const
    {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(handle, sql.toUtf8().constData(), -1, &statement, nullptr) !=
            SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(handle));
        return statement;
    }

    QString Themes(const QString& song) const
    {
        sqlite3_stmt* statement = Prepare(
            u"SELECT TEMA.DESCRICAO, TEMA.COR FROM TEMA_MUSICA INNER JOIN TEMA ON TEMA.ID = "
            u"TEMA_MUSICA.ID_TEMA WHERE ID_MUSICA = 0%1 ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs.arg(
                song));
        QString themes;
        while (sqlite3_step(statement) == SQLITE_ROW)
            themes += (themes.isEmpty() ? u""_qs : u", "_qs) + Column(statement, 0);
        sqlite3_finalize(statement);
        return themes;
    }

    sqlite3* handle = nullptr;
    UCollator* collator = nullptr;
};

NaiveSearch::NaiveSearch(const QString& catalogue)
    : m_database(std::make_unique<Database>(catalogue))
{
}

NaiveSearch::~NaiveSearch() = default;

int NaiveSearch::Run(const QString& sql, QTreeWidget& list)
{
    list.clear();
    const QString sorted = QString(sql).replace(u"ORDER BY MUSICA.TITULO"_qs,
                                                u"ORDER BY MUSICA.TITULO COLLATE ICU"_qs);
    sqlite3_stmt* statement = m_database->Prepare(sorted);
    int rows = 0;
    for (; sqlite3_step(statement) == SQLITE_ROW; ++rows) {
        const QString id = Column(statement, 0);
        const QString key = Column(statement, 3) + Column(statement, 4);
        const QString themes = m_database->Themes(id);
        auto* item = new QTreeWidgetItem(&list);
        item->setText(0, Column(statement, 1) + u" (" + key + u')');
        item->setToolTip(0,
                         Column(statement, 1) + u" [" + Column(statement, 5) + u"] (" + key + u')');
        item->setData(0, Qt::UserRole, id);
        item->setText(1, Column(statement, 2));
        item->setToolTip(1, Column(statement, 2));
        item->setText(2, themes);
        item->setToolTip(2, themes);
    }
    sqlite3_finalize(statement);
    return rows;
}
