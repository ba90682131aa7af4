#include "tests/model/model_print_order.h"

#include <functional>
#include <vector>

namespace flm_model {
namespace {

std::string SizeText(int code) {
  return code == 3 || code == 4 || code == 5 || code == 8 ? Format("SIZ -%02d", code) : "";
}

int TypeOf(const std::string& value) {
  if (value == "STD") return 100;
  if (value == "IDX") return 200;
  for (int code : {3, 4, 5, 8}) {
    if (value == SizeText(code)) return code;
  }
  return -1;
}

class Writer {
 public:
  Writer(ModelCatalogue* catalogue, int fileCount) : catalogue_(catalogue), files_(fileCount) {}

  std::string Text(const std::string& creator) {
    text_ = "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"" + creator + "\"\r\n\r\n";
    Walk(2, [this](const std::string& path, int prints) {
      Job("STD", Format("%03d", prints));
      Source(path);
    });
    Index();
    Walk(15, [this](const std::string& path, int size) {
      Job(SizeText(size), "001");
      Source(path);
    });
    return text_;
  }

 private:
  void Walk(int byte, const std::function<void(const std::string&, int)>& take) {
    char path[128] = "";
    char object[128] = "";
    for (int i = 0; i < files_; ++i) {
      int result = i == 0 ? catalogue_->GetFirst(path, 128, object, 128, true, nullptr)
                          : catalogue_->GetNext(path, 128, object, 128, nullptr);
      if (result < 0) return;
      int value = catalogue_->GetCustomInfo(path, byte);
      if (value != 0) take(path, value);
    }
  }

  void Index() {
    int count = 0;
    Walk(14, [&count](const std::string&, int) { ++count; });
    if (count == 0) return;
    Job("IDX", "001>");
    Walk(14, [this](const std::string& path, int) {
      if (path.size() >= 3 && path.substr(path.size() - 3) == "JPG") Source(path);
    });
  }

  void Job(const std::string& type, const std::string& quantity) {
    text_ += Format("[JOB]\r\nPRT PID=%03d\r\nPRT TYP=", ++jobs_) + type +
             "\r\nPRT QTY=" + quantity + "\r\nIMG FMT=EXIF2 -J\r\n";
  }

  void Source(const std::string& path) {
    std::string root = catalogue_->GetBaseURI();
    text_ += "<IMG SRC=\"../" + path.substr(root.size() + 1) + "\">\r\n";
  }

  ModelCatalogue* catalogue_;
  int files_;
  int jobs_ = 0;
  std::string text_;
};

class Reader {
 public:
  Reader(ModelCatalogue* catalogue, const std::string& root) : catalogue_(catalogue), root_(root) {}

  int Read(const std::string& text) {
    size_t at = 0;
    for (;;) {
      size_t end = text.find('\n', at);
      // A last line without an end is not read, a line that does not fit ends the reading.
      if (end == std::string::npos || end - at + 2 > 2048) return 0;
      std::string line = text.substr(at, end + 1 - at);
      at = end + 1;
      if (!Take(line.substr(0, line.find('\0')))) return -1;
    }
  }

 private:
  bool Take(const std::string& line) {
    if (line.size() < 7 || line[0] == '[') return true;
    if (line.compare(0, 3, "PRT") == 0) {
      key_ = line.substr(0, 7);
      if (!TakeValue(line)) return false;
    } else if (line.compare(0, 2, "IM") == 0 || line.compare(0, 2, "<I") == 0) {
      key_ = line.substr(0, 7);
      TakeSource(line);
    }
    if (key_ == "PRT TYP") type_ = TypeOf(value_);
    if (key_ == "PRT QTY") quantity_ = QuantityOf(value_);
    if (key_ == "<IMG SR" || key_ == "IMG SRC") Apply();
    return true;
  }

  bool TakeValue(const std::string& line) {
    size_t equals = line.find('=');
    if (equals == std::string::npos) return true;
    std::string value = line.substr(equals + 1);
    for (int i = 0; i < 2; ++i) {
      if (value.empty() || (value.back() != '\r' && value.back() != '\n')) break;
      value.pop_back();
    }
    if (value.size() > 127) return false;
    value_ = value;
    return true;
  }

  void TakeSource(const std::string& line) {
    size_t first = line.find('"');
    size_t second = first == std::string::npos ? first : line.find('"', first + 1);
    if (second != std::string::npos) source_ = line.substr(first + 1, second - first - 1);
  }

  static unsigned char QuantityOf(const std::string& value) {
    unsigned int quantity = 0;
    for (char c : value) {
      if (c < '0' || c > '9') break;
      quantity = quantity * 10 + static_cast<unsigned int>(c - '0');
    }
    return static_cast<unsigned char>(quantity);
  }

  void Apply() {
    std::string target = root_ + "/" + (source_.size() > 3 ? source_.substr(3) : "");
    if (target.size() > 127) return;
    if (type_ == 100) catalogue_->SetCustomInfo(target.c_str(), 2, quantity_);
    if (type_ == 200) catalogue_->SetCustomInfo(target.c_str(), 14, 1);
    if (type_ == 3 || type_ == 4 || type_ == 5 || type_ == 8) {
      catalogue_->SetCustomInfo(target.c_str(), 15, static_cast<unsigned char>(type_));
    }
  }

  ModelCatalogue* catalogue_;
  std::string root_;
  std::string key_;
  std::string value_;
  std::string source_;
  int type_ = -1;
  unsigned char quantity_ = 0;
};

}  // namespace

int SavePrintOrder(World& world, const std::string& path, ModelCatalogue* catalogue,
                   const std::string& creator, int fileCount) {
  if (catalogue == nullptr || world.picture.WriteFile(path, "") == nullptr) return -1;
  if (fileCount != 0) {
    world.picture.WriteFile(path, Writer(catalogue, fileCount).Text(creator));
  }
  return 0;
}

int LoadPrintOrder(World& world, const std::string& path, ModelCatalogue* catalogue) {
  const Node* node = world.picture.Find(path);
  size_t misc = path.find("/MISC");
  if (catalogue == nullptr || node == nullptr || node->folder || misc == std::string::npos) {
    return -1;
  }
  std::string text = node->content;
  return Reader(catalogue, path.substr(0, misc)).Read(text);
}

}  // namespace flm_model
