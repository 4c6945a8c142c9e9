#include "store/dialect/parser.h"

#include <algorithm>
#include <charconv>

#include "store/dialect/parse_expression.h"

namespace quillon::store::dialect {

namespace {

std::unique_ptr<TableRef> ParseTableRef(TokenStream& tokens);

std::unique_ptr<TableRef> ParseTable(TokenStream& tokens) {
    if (tokens.TakeSymbol("(")) {
        std::unique_ptr<TableRef> inner = ParseTableRef(tokens);
        tokens.ExpectSymbol(")");
        return inner;
    }
    auto table = std::make_unique<TableRef>();
    table->place = tokens.Peek().place;
    table->table = tokens.ExpectName();
    if (tokens.TakeWord("as") || tokens.IsName()) table->alias = tokens.ExpectName();
    return table;
}

bool TakeJoin(TokenStream& tokens, JoinKind& kind) {
    if (tokens.IsWord("inner") && tokens.IsWord("join", 1)) {
        kind = JoinKind::Inner;
    } else if (tokens.IsWord("left")) {
        kind = JoinKind::Left;
    } else if (tokens.IsWord("right")) {
        kind = JoinKind::Right;
    } else {
        return false;
    }
    tokens.Take();
    tokens.TakeWord("outer");
    tokens.ExpectWord("join");
    return true;
}

std::unique_ptr<TableRef> ParseTableRef(TokenStream& tokens) {
    const TokenStream::Depth depth(tokens);
    std::unique_ptr<TableRef> left = ParseTable(tokens);
    JoinKind kind = JoinKind::Inner;
    while (TakeJoin(tokens, kind)) {
        auto join = std::make_unique<TableRef>();
        join->isJoin = true;
        join->join = kind;
        join->place = left->place;
        join->left = std::move(left);
        join->right = ParseTable(tokens);
        tokens.ExpectWord("on");
        join->on = ParseExpression(tokens);
        for (const std::size_t below : {join->left->depth, join->right->depth, join->on->depth})
            tokens.Nest(join->depth, below);
        left = std::move(join);
    }
    return left;
}

SelectItem ParseItem(TokenStream& tokens) {
    SelectItem item;
    if (tokens.TakeSymbol("*")) {
        item.star = true;
        return item;
    }
    if (tokens.IsName() && tokens.IsSymbol(".", 1) && tokens.IsSymbol("*", 2)) {
        item.star = true;
        item.qualifier = tokens.ExpectName();
        tokens.Take();
        tokens.Take();
        return item;
    }
    item.expression = ParseExpression(tokens);
    if (tokens.TakeWord("as")) item.alias = tokens.ExpectName();
    return item;
}

void ParseOrderBy(TokenStream& tokens, Select& select) {
    if (!tokens.TakeWord("order")) return;
    tokens.ExpectWord("by");
    do {
        OrderItem item;
        item.expression = ParseExpression(tokens);
        tokens.Nest(select.depth, item.expression->depth);
        item.descending = tokens.TakeWord("desc");
        if (!item.descending) tokens.TakeWord("asc");
        select.orderBy.push_back(std::move(item));
    } while (tokens.TakeSymbol(","));
}

std::unique_ptr<Select> ParseCore(TokenStream& tokens) {
    auto select = std::make_unique<Select>();
    const auto parsePart = [&] {
        ExpressionPtr part = ParseExpression(tokens);
        tokens.Nest(select->depth, part->depth);
        return part;
    };
    tokens.ExpectWord("select");
    select->distinct = tokens.TakeWord("distinct");
    if (!select->distinct) select->distinctRow = tokens.TakeWord("distinctrow");
    do {
        select->items.push_back(ParseItem(tokens));
        const ExpressionPtr& item = select->items.back().expression;
        if (item != nullptr) tokens.Nest(select->depth, item->depth);
    } while (tokens.TakeSymbol(","));
    if (tokens.TakeWord("from")) {
        do {
            select->from.push_back(ParseTableRef(tokens));
            tokens.Nest(select->depth, select->from.back()->depth);
        } while (tokens.TakeSymbol(","));
    }
    if (tokens.TakeWord("where")) select->where = parsePart();
    if (tokens.TakeWord("group")) {
        tokens.ExpectWord("by");
        do {
            select->groupBy.push_back(parsePart());
        } while (tokens.TakeSymbol(","));
    }
    if (tokens.TakeWord("having")) select->having = parsePart();
    return select;
}

void ParseParameters(TokenStream& tokens, Statement& statement) {
    if (!tokens.TakeWord("parameters")) return;
    do {
        Declaration declaration;
        declaration.name = tokens.ExpectName();
        declaration.text = tokens.IsWord("text");
        if (!declaration.text && !tokens.IsWord("long")) tokens.Fail("A parameter is Text or Long in");
        tokens.Take();
        statement.parameters.push_back(std::move(declaration));
    } while (tokens.TakeSymbol(","));
    tokens.ExpectSymbol(";");
}

void ParseInsert(TokenStream& tokens, Statement& statement) {
    statement.kind = StatementKind::Insert;
    tokens.ExpectWord("into");
    statement.place = tokens.Peek().place;
    statement.table = tokens.ExpectName();
    if (tokens.TakeSymbol("(")) {
        do {
            statement.columns.push_back(tokens.ExpectName());
        } while (tokens.TakeSymbol(","));
        tokens.ExpectSymbol(")");
    }
    if (!tokens.TakeWord("values")) {
        statement.select = ParseSelect(tokens);
        return;
    }
    tokens.ExpectSymbol("(");
    do {
        statement.values.push_back(ParseExpression(tokens));
    } while (tokens.TakeSymbol(","));
    tokens.ExpectSymbol(")");
}

void ParseUpdate(TokenStream& tokens, Statement& statement) {
    statement.kind = StatementKind::Update;
    tokens.TakeWord("distinctrow");
    statement.place = tokens.Peek().place;
    statement.target = ParseTableRef(tokens);
    tokens.ExpectWord("set");
    do {
        // The column is a plain name; its value is any expression.
        auto column = std::make_unique<Expression>();
        column->kind = ExpressionKind::Column;
        column->place = tokens.Peek().place;
        column->name = tokens.ExpectName();
        if (tokens.TakeSymbol(".")) {
            column->qualifier = std::move(column->name);
            column->name = tokens.ExpectName();
        }
        tokens.ExpectSymbol("=");
        statement.assignments.emplace_back(std::move(column), ParseExpression(tokens));
    } while (tokens.TakeSymbol(","));
    if (tokens.TakeWord("where")) statement.where = ParseExpression(tokens);
}

void ParseDelete(TokenStream& tokens, Statement& statement) {
    statement.kind = StatementKind::Delete;
    if (!tokens.TakeSymbol("*") && tokens.IsName()) {
        tokens.ExpectName();
        tokens.ExpectSymbol(".");
        tokens.ExpectSymbol("*");
    }
    tokens.ExpectWord("from");
    statement.place = tokens.Peek().place;
    statement.table = tokens.ExpectName();
    if (tokens.TakeWord("where")) statement.where = ParseExpression(tokens);
}

int ParseSize(TokenStream& tokens) {
    if (!tokens.TakeSymbol("(")) return 0;
    const Token number = tokens.Take();
    int size = 0;
    const char* end = number.text.data() + number.text.size();
    const auto [stop, error] = std::from_chars(number.text.data(), end, size);
    if (number.kind != TokenKind::Number || error != std::errc() || stop != end || size < 1 || size > 255)
        tokens.Fail("Expected a size from 1 to 255 before");
    tokens.ExpectSymbol(")");
    return size;
}

void ParseAlterTable(TokenStream& tokens, Statement& statement) {
    tokens.ExpectWord("table");
    statement.place = tokens.Peek().place;
    statement.table = tokens.ExpectName();
    if (tokens.TakeWord("drop")) {
        statement.kind = StatementKind::DropColumn;
        tokens.ExpectWord("column");
        statement.name = tokens.ExpectName();
        return;
    }
    statement.kind = StatementKind::AddColumn;
    tokens.ExpectWord("add");
    tokens.ExpectWord("column");
    statement.name = tokens.ExpectName();
    statement.columnType = tokens.ExpectName();
    statement.columnSize = ParseSize(tokens);
    if (tokens.TakeWord("not")) {
        tokens.ExpectWord("null");
        statement.required = true;
    } else {
        tokens.TakeWord("null");
    }
}

void ParseCreateIndex(TokenStream& tokens, Statement& statement) {
    statement.kind = StatementKind::CreateIndex;
    tokens.ExpectWord("index");
    statement.name = tokens.ExpectName();
    tokens.ExpectWord("on");
    statement.place = tokens.Peek().place;
    statement.table = tokens.ExpectName();
    tokens.ExpectSymbol("(");
    do {
        statement.columns.push_back(tokens.ExpectName());
    } while (tokens.TakeSymbol(","));
    tokens.ExpectSymbol(")");
    if (tokens.TakeWord("with")) {
        tokens.ExpectWord("primary");
        statement.primary = true;
    }
}

void ParseDropIndex(TokenStream& tokens, Statement& statement) {
    statement.kind = StatementKind::DropIndex;
    tokens.ExpectWord("index");
    statement.name = tokens.ExpectName();
    tokens.ExpectWord("on");
    statement.place = tokens.Peek().place;
    statement.table = tokens.ExpectName();
}

void ParseBody(TokenStream& tokens, Statement& statement) {
    if (tokens.IsWord("select")) {
        statement.select = ParseSelect(tokens);
    } else if (tokens.TakeWord("insert")) {
        ParseInsert(tokens, statement);
    } else if (tokens.TakeWord("update")) {
        ParseUpdate(tokens, statement);
    } else if (tokens.TakeWord("delete")) {
        ParseDelete(tokens, statement);
    } else if (tokens.TakeWord("alter")) {
        ParseAlterTable(tokens, statement);
    } else if (tokens.TakeWord("create")) {
        ParseCreateIndex(tokens, statement);
    } else if (tokens.TakeWord("drop")) {
        ParseDropIndex(tokens, statement);
    } else {
        tokens.Fail("The dialect has no such statement:");
    }
}

void ExpectEnd(TokenStream& tokens) {
    tokens.TakeSymbol(";");
    if (!tokens.AtEnd()) tokens.Fail("Unexpected words in");
}

}  // namespace

std::unique_ptr<Select> ParseSelect(TokenStream& tokens) {
    const TokenStream::Depth depth(tokens);
    std::unique_ptr<Select> first = ParseCore(tokens);
    Select* last = first.get();
    while (tokens.TakeWord("union")) {
        last->unionAll = tokens.TakeWord("all");
        last->unionWith = ParseCore(tokens);
        last = last->unionWith.get();
        tokens.Nest(first->depth, std::max(first->depth, last->depth));
    }
    ParseOrderBy(tokens, *first);
    return first;
}

Statement ParseStatement(std::string_view sql) {
    TokenStream tokens(sql);
    Statement statement;
    ParseParameters(tokens, statement);
    ParseBody(tokens, statement);
    ExpectEnd(tokens);
    return statement;
}

ExpressionPtr ParseCriteria(std::string_view criteria) {
    TokenStream tokens(criteria);
    ExpressionPtr expression = ParseExpression(tokens);
    ExpectEnd(tokens);
    return expression;
}

}  // namespace quillon::store::dialect
