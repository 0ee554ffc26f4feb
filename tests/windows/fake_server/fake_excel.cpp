// Excel as far as Korvane talks to it: workbooks opened by path and found by
// name, worksheets by name or number, cells by address or by row and column
// with their Value and FormulaLocal, and Run of a macro. Nothing is computed:
// a formula put is kept as text, and a book is never saved.
#include <cwctype>
#include <map>
#include <memory>

#include "fake_roles.h"

namespace fake {
namespace {

struct Cell {
  std::wstring formula;
  VARIANT value{};  // VT_EMPTY until put
  ~Cell() { VariantClear(&value); }
};

using Sheet = std::map<std::wstring, Cell>;  // by address, "B3"

struct Book {
  std::wstring path;
  std::wstring name;  // the file name, as Workbooks.Item finds it
  std::map<std::wstring, std::shared_ptr<Sheet>> sheets;
  std::vector<std::wstring> order;  // Worksheets(1) is the first
};

struct ExcelState {
  std::vector<std::shared_ptr<Book>> books;
};

// "$b$3" -> "B3".
std::wstring address(const std::wstring& reference) {
  std::wstring a;
  for (wchar_t c : reference)
    if (c != L'$') a += static_cast<wchar_t>(std::towupper(c));
  return a;
}

std::wstring address(long row, long column) {
  std::wstring letters;
  for (long c = column; c > 0; c = (c - 1) / 26)
    letters.insert(letters.begin(), static_cast<wchar_t>(L'A' + (c - 1) % 26));
  return letters + std::to_wstring(row);
}

class Range final : public Dispatch {
 public:
  Range(std::shared_ptr<Sheet> sheet, std::wstring at)
      : Dispatch(L"range"), sheet_(std::move(sheet)), at_(std::move(at)) {}
  HRESULT member(const std::wstring& name, WORD flags, std::vector<VARIANT*>& args, VARIANT* result,
                 EXCEPINFO*) override {
    Cell& cell = (*sheet_)[at_];
    const bool put = flags & DISPATCH_PROPERTYPUT;
    if (name == L"Value") {
      if (!put) return VariantCopy(result, &cell.value);
      VariantClear(&cell.value);
      VariantCopyInd(&cell.value, args[0]);
      cell.formula = text(&cell.value);
      return S_OK;
    }
    if (name == L"FormulaLocal") {
      if (!put) return setText(result, cell.formula), S_OK;
      cell.formula = text(args[0]);
      VariantClear(&cell.value);
      setText(&cell.value, cell.formula);  // shown as typed; nothing is calculated
      return S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }

 private:
  std::shared_ptr<Sheet> sheet_;
  std::wstring at_;
};

class Worksheet final : public Dispatch {
 public:
  explicit Worksheet(std::shared_ptr<Sheet> sheet) : Dispatch(L"sheet"), sheet_(std::move(sheet)) {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>& args, VARIANT* result,
                 EXCEPINFO*) override {
    if (name == L"Range" && args.size() == 1)
      return setObject(result, new Range(sheet_, address(text(args[0])))), S_OK;
    if (name == L"Cells" && args.size() == 2) {
      const auto row = static_cast<long>(number(args[0]));
      const auto column = static_cast<long>(number(args[1]));
      return setObject(result, new Range(sheet_, address(row, column))), S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }

 private:
  std::shared_ptr<Sheet> sheet_;
};

class Worksheets final : public Dispatch {
 public:
  explicit Worksheets(std::shared_ptr<Book> book) : Dispatch(L"sheets"), book_(std::move(book)) {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>& args, VARIANT* result,
                 EXCEPINFO* info) override {
    if (name != L"Item" || args.size() != 1) return DISP_E_MEMBERNOTFOUND;
    std::wstring wanted = text(args[0]);
    VARIANT* a = args[0]->vt == (VT_BYREF | VT_VARIANT) ? args[0]->pvarVal : args[0];
    if ((a->vt & ~VT_BYREF) != VT_BSTR) {
      const auto k = static_cast<std::size_t>(number(args[0]));
      if (k < 1 || k > book_->order.size()) return raise(info, L"Subscript out of range");
      wanted = book_->order[k - 1];
    }
    auto it = book_->sheets.find(wanted);
    if (it == book_->sheets.end()) return raise(info, L"Subscript out of range");
    return setObject(result, new Worksheet(it->second)), S_OK;
  }

 private:
  std::shared_ptr<Book> book_;
};

class Workbook final : public Dispatch {
 public:
  explicit Workbook(std::shared_ptr<Book> book) : Dispatch(L"book"), book_(std::move(book)) {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>&, VARIANT* result,
                 EXCEPINFO*) override {
    if (name == L"Worksheets") return setObject(result, new Worksheets(book_)), S_OK;
    if (name == L"Name") return setText(result, book_->name), S_OK;
    if (name == L"FullName") return setText(result, book_->path), S_OK;
    return DISP_E_MEMBERNOTFOUND;
  }

 private:
  std::shared_ptr<Book> book_;
};

class Workbooks final : public Dispatch {
 public:
  explicit Workbooks(std::shared_ptr<ExcelState> s) : Dispatch(L"books"), s_(std::move(s)) {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>& args, VARIANT* result,
                 EXCEPINFO* info) override {
    if (name == L"Count") return setInt(result, static_cast<long>(s_->books.size())), S_OK;
    if (args.size() != 1) return DISP_E_MEMBERNOTFOUND;
    const std::wstring wanted = text(args[0]);
    if (name == L"Open") {
      // A new book has two empty sheets, as Excel makes them.
      auto book = std::make_shared<Book>();
      book->path = wanted;
      book->name = wanted.substr(wanted.find_last_of(L"\\/") + 1);
      for (const wchar_t* sheet : {L"Sheet1", L"Sheet2"}) {
        book->sheets[sheet] = std::make_shared<Sheet>();
        book->order.push_back(sheet);
      }
      s_->books.push_back(book);
      return setObject(result, new Workbook(book)), S_OK;
    }
    if (name == L"Item") {
      for (const auto& book : s_->books)
        if (_wcsicmp(book->name.c_str(), wanted.c_str()) == 0)
          return setObject(result, new Workbook(book)), S_OK;
      return raise(info, L"Subscript out of range");
    }
    return DISP_E_MEMBERNOTFOUND;
  }

 private:
  std::shared_ptr<ExcelState> s_;
};

// The text and number of an argument that may have come by reference.
std::wstring textOf(VARIANT* v) {
  VARIANT copy;
  VariantInit(&copy);
  VariantCopyInd(&copy, v);
  std::wstring s = text(&copy);
  VariantClear(&copy);
  return s;
}
double numberOf(VARIANT* v) {
  VARIANT copy;
  VariantInit(&copy);
  VariantCopyInd(&copy, v);
  const double d = number(&copy);
  VariantClear(&copy);
  return d;
}

// Run's macro "Ditch.ConvertListToLinemode" fills the result text (argument 3
// after the name) and moves each of the four chainages (8 to 11) on by 1000,
// through the references it was given.
void convertListToLinemode(std::vector<VARIANT*>& args) {
  if (args.size() != 12) return;
  VARIANT lines;
  VariantInit(&lines);
  setText(&lines, L"crea," + textOf(args[4]) + L"\r\n   ditch " + textOf(args[5]));
  assign(args[3], lines);
  VariantClear(&lines);
  for (std::size_t k = 8; k < 12; ++k) {
    VARIANT moved;
    VariantInit(&moved);
    setNumber(&moved, numberOf(args[k]) + 1000);
    assign(args[k], moved);
  }
}

class Application final : public Dispatch {
 public:
  Application() : Dispatch(L"excel"), s_(std::make_shared<ExcelState>()) {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>& args, VARIANT* result,
                 EXCEPINFO*) override {
    if (name == L"Workbooks") return setObject(result, new Workbooks(s_)), S_OK;
    // A macro's result is its name and its arguments joined, so that a test
    // sees that every argument arrived.
    if (name == L"Run" && !args.empty()) {
      std::wstring r = textOf(args[0]);
      for (std::size_t k = 1; k < args.size(); ++k) r += L"|" + textOf(args[k]);
      if (textOf(args[0]) == L"Tabulon.xla!Ditch.ConvertListToLinemode")
        convertListToLinemode(args);
      setText(result, r);
      return S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }

 private:
  std::shared_ptr<ExcelState> s_;
};

}  // namespace

IDispatch* createExcel() { return new Application; }

}  // namespace fake
