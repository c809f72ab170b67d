"""The layering check on small trees with right and wrong includes."""
import contextlib
import importlib.util
import io
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "cmake" / "check_layering.py"
sys.dont_write_bytecode = True
spec = importlib.util.spec_from_file_location("check_layering", CHECK)
check_layering = importlib.util.module_from_spec(spec)
spec.loader.exec_module(check_layering)


class LayeringTest(unittest.TestCase):
    def violations(self, files):
        with tempfile.TemporaryDirectory() as directory:
            root = Path(directory)
            for name, text in files.items():
                (root / name).parent.mkdir(parents=True, exist_ok=True)
                (root / name).write_text(text)
            return list(check_layering.violations(root))

    def test_the_way_down_is_open(self):
        self.assertEqual([], self.violations({
            "apps/editor/main.cpp": "#include <datamodels/a.h>\n#include <host/base/debug.h>\n#include <QString>\n",
            "src/datamodels/a.h": "#include <host/reflection/object.h>\n",
            "src/host/reflection/object.h": "#include <host/variant/variant.h>\n",
            "src/host/engine/atlas.h": "#include <host/jobs/job.h>\n",
        }))

    def test_the_library_may_not_include_the_application(self):
        self.assertEqual(["src/datamodels/a.cpp:2: datamodels may not include apps (apps/editor/window.h)"],
                         self.violations({"src/datamodels/a.cpp": "\n#include <apps/editor/window.h>\n"}))

    def test_the_host_may_not_include_the_library(self):
        self.assertEqual(["src/host/base/a.h:1: host may not include datamodels (src/datamodels/b.h)"],
                         self.violations({"src/host/base/a.h": "#include <datamodels/b.h>\n"}))

    def test_a_service_may_not_include_a_later_one(self):
        self.assertEqual(["src/host/signals/a.h:1: host/signals may not include host/undo (src/host/undo/b.h)"],
                         self.violations({"src/host/signals/a.h": "#include <host/undo/b.h>\n"}))

    def test_services_beside_each_other_do_not_know_each_other(self):
        self.assertEqual(["src/host/jobs/a.h:1: host/jobs may not include host/resources (src/host/resources/b.h)"],
                         self.violations({"src/host/jobs/a.h": "#include <host/resources/b.h>\n"}))

    def test_a_service_without_a_place_is_reported(self):
        self.assertEqual(["src/host/sound/a.h:1: host/sound has no place among the services (src/host/base/b.h)"],
                         self.violations({"src/host/sound/a.h": "#include <host/base/b.h>\n"}))

    def test_nothing_includes_tests_and_benchmarks(self):
        self.assertEqual(["src/datamodels/a.h:1: datamodels may not include tests (tests/support/log.h)",
                          "apps/editor/b.h:1: apps may not include benchmarks (benchmarks/bench.h)"],
                         self.violations({
                             "src/datamodels/a.h": "#include <support/log.h>\n",
                             "apps/editor/b.h": '#include "../../benchmarks/bench.h"\n',
                             "tests/support/log.h": "",
                             "benchmarks/bench.h": "",
                         }))

    def test_tests_and_benchmarks_may_include_anything(self):
        self.assertEqual([], self.violations({
            "src/datamodels/a.h": "",
            "tests/a.cpp": "#include <host/undo/b.h>\n#include <apps/editor/c.h>\n",
            "benchmarks/a.cpp": "#include <support/log.h>\n",
        }))

    def test_a_relative_path_is_followed(self):
        self.assertEqual(["src/host/base/a.h:1: host/base may not include host/undo (src/host/undo/b.h)"],
                         self.violations({"src/host/base/a.h": '#include "../undo/b.h"\n', "src/host/undo/b.h": ""}))

    def test_proxies_know_nothing_of_reflection(self):
        for name in ("proxy/a.h", "graph/a.h", "helpers/a.h", "simple_tree_model.h", "composite_model.cpp"):
            with self.subTest(name):
                self.assertEqual(
                    [f"src/datamodels/{name}:1: this part knows nothing of reflection (src/host/reflection/b.h)"],
                    self.violations({f"src/datamodels/{name}": "#include <host/reflection/b.h>\n"}))

    def test_reflection_is_found_behind_other_headers(self):
        self.assertEqual(["src/datamodels/proxy/a.h:1: this part knows nothing of reflection "
                          "(src/datamodels/roles.h -> src/datamodels/more.h -> src/host/bridge/b.h)"],
                         self.violations({
                             "src/datamodels/proxy/a.h": "#include <datamodels/roles.h>\n",
                             "src/datamodels/roles.h": "#include <datamodels/more.h>\n",
                             "src/datamodels/more.h": "#include <datamodels/roles.h>\n#include <host/bridge/b.h>\n",
                         }))

    def test_the_composer_of_selections_and_the_scene_may_know_reflection(self):
        self.assertEqual([], self.violations({
            "src/datamodels/helpers/qt_miltiselection_composer.h": "#include <host/reflection/b.h>\n",
            "src/datamodels/scene/a.h": "#include <host/reflection/b.h>\n",
        }))

    def test_a_proxy_knows_no_other_model(self):
        self.assertEqual(["src/datamodels/proxy/a.cpp:1: proxy may not know another model "
                          "(src/datamodels/simple_tree_model.h)"],
                         self.violations({
                             "src/datamodels/proxy/a.cpp": "#include <datamodels/simple_tree_model.h>\n",
                             "src/datamodels/proxy/b.cpp": "#include <datamodels/proxy/filter_proxy_model.h>\n",
                         }))

    def test_a_comment_is_no_include(self):
        self.assertEqual([], self.violations({"src/host/base/a.h": "// #include <datamodels/b.h>\n"}))

    def test_the_exit_code_tells(self):
        with tempfile.TemporaryDirectory() as directory, contextlib.redirect_stdout(io.StringIO()) as out, \
                contextlib.redirect_stderr(io.StringIO()):
            self.assertEqual(2, check_layering.main([directory]))

            header = Path(directory, "src/host/base/a.h")
            header.parent.mkdir(parents=True)
            header.write_text("#include <QString>\n")
            self.assertEqual(0, check_layering.main([directory]))

            header.write_text("#include <host/undo/b.h>\n")
            self.assertEqual(1, check_layering.main([directory]))
            self.assertIn("src/host/base/a.h:1: host/base may not include host/undo", out.getvalue())


if __name__ == "__main__":
    unittest.main()
