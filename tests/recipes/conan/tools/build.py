def check_min_cppstd(recipe, standard):
    assert standard == 20
