"""The check of exported symbols on made-up headers and symbol tables."""
import sys
import unittest

sys.dont_write_bytecode = True
import check_exports

HEADERS = [
    "class DATAMODELS_API Model : public QObject\n{\n};\nclass Hidden\n{\n};\n",
    "class DATAMODELS_API Model::Node\n{\n};\n",
    "DATAMODELS_HOST_API extern Hooks g_hooks;\nDATAMODELS_HOST_API void* get(const char* key);\nvoid secret();\n",
]


def strays(*lines):
    return check_exports.strays("".join(f"0000000000001000 {line}\n" for line in lines), HEADERS)


class ExportsTest(unittest.TestCase):
    def test_what_is_exported_may_be_seen(self):
        self.assertEqual([], strays("T editor::Model::data(QModelIndex const&, int) const", "V vtable for editor::Model",
                                    "T editor::Model::Node::row() const", "B Profiler::g_hooks",
                                    "T instances::get(char const*)", "T Model::name[abi:cxx11]()"))

    def test_thunks_belong_to_their_classes(self):
        self.assertEqual(["Hidden::~Hidden()"],
                         strays("T non-virtual thunk to editor::Model::data()", "T virtual thunk to Hidden::~Hidden()"))

    def test_a_class_without_the_macro_is_found(self):
        self.assertEqual(["Detail::Hidden::run()", "editor::Hidden"],
                         strays("T Detail::Hidden::run()", "V typeinfo for editor::Hidden", "T Model::data()"))

    def test_a_function_without_the_macro_is_found(self):
        self.assertEqual(["instances::secret()"], strays("T instances::secret()"))

    def test_an_exported_class_among_the_arguments_is_no_excuse(self):
        self.assertEqual(["Hidden::run(Model&)", "Hidden::run<Model>()"],
                         strays("T Hidden::run(Model&)", "T Hidden::run<Model>()"))

    def test_inline_functions_of_others_are_left_out(self):
        self.assertEqual([], strays("W std::vector<int>::push_back(int&&)", "V typeinfo for QObject", "T _init"))

    def test_types_of_pointers_and_functions_belong_to_nobody(self):
        self.assertEqual([], strays("V typeinfo for editor::Hidden const*", "V typeinfo name for int (*)(editor::Hidden&)",
                                    "V typeinfo for void (editor::Hidden const&)"))


if __name__ == "__main__":
    unittest.main()
