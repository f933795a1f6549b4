# Included by the message packages after find_package(catkin ... message_generation):
# C++ and Python generation then announce the fixed sums of fixed_md5.py.
set(GENCPP_BIN "${CMAKE_CURRENT_LIST_DIR}/gen_cpp_fixed_md5.py")
set(GENMSG_PY_BIN "${CMAKE_CURRENT_LIST_DIR}/genmsg_py_fixed_md5.py")
